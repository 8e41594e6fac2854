// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace ws {

// The icon of a name, drawn in one colour of the skin; a name that no resource has gives an empty icon.
QIcon SkinIcon(const QString& Name, const QColor& Color);

// The icon of a name in its own colours.
QIcon PlainIcon(const QString& Name);

}  // namespace ws
