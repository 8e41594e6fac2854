// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>

namespace ws {

// The program: fonts, look, and the last net under every event handler.
class TApplication : public QApplication {
public:
    TApplication(int& ArgumentCount, char** Arguments);
    bool notify(QObject* Receiver, QEvent* Event) override;
};

}  // namespace ws
