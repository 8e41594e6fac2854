// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>

int main(int ArgumentCount, char** Arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication Application(ArgumentCount, Arguments);
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    testing::InitGoogleTest(&ArgumentCount, Arguments);
    return RUN_ALL_TESTS();
}
