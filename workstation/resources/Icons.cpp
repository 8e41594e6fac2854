// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/resources/Icons.h"

#include <QFile>

// A library's resources are registered by hand; the macro must stand outside of any namespace.
static void RegisterIcons() { Q_INIT_RESOURCE(icons); }

namespace ws {

QIcon IconByName(const std::string& Name) {
    RegisterIcons();
    const QString Path = QStringLiteral(":/icons/%1.svg").arg(QString::fromStdString(Name));
    return QFile::exists(Path) ? QIcon(Path) : QIcon();
}

}  // namespace ws
