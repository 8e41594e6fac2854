// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/Application.h"

#include <cstdio>

#include <QFont>
#include <QFontDatabase>

#include "framework/base/Dispatch.h"

namespace ws {

namespace {

constexpr int kFontPoints = 9;

// The platform without a screen warns about every window; that one line says nothing to anybody.
void HandleToolkitMessage(QtMsgType, const QMessageLogContext&, const QString& Message) {
    if (Message == QLatin1String("This plugin does not support propagateSizeHints()")) return;
    std::fprintf(stderr, "%s\n", qUtf8Printable(Message));
}

}  // namespace

TApplication::TApplication(int& ArgumentCount, char** Arguments) : QApplication(ArgumentCount, Arguments) {
    qInstallMessageHandler(HandleToolkitMessage);
    setApplicationName(QStringLiteral("ventiq-workstation"));
    setStyle(QStringLiteral("Fusion"));
    QFont Font;
    Font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("WenQuanYi Micro Hei")});
    Font.setPointSize(kFontPoints);
    setFont(Font);
}

bool TApplication::notify(QObject* Receiver, QEvent* Event) {
    bool Result = false;
    fw::Dispatch("event", [&] { Result = QApplication::notify(Receiver, Event); });
    return Result;
}

}  // namespace ws
