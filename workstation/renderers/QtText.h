// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QDateTime>
#include <QString>

#include "framework/base/Clock.h"
#include "framework/base/Color.h"
#include "framework/base/Text.h"
#include "framework/data/ColumnInfo.h"

namespace ws {

// The border between the framework's UTF-8 texts and colours (red in the low byte) and the toolkit's.
inline QString ToQt(const fw::Text& S) { return QString::fromUtf8(S.data(), static_cast<qsizetype>(S.size())); }
inline fw::Text FromQt(const QString& S) { return S.toStdString(); }
inline QColor ToQColor(fw::TColor C) { return QColor(fw::RedOf(C), fw::GreenOf(C), fw::BlueOf(C)); }

// The wall clock of this machine.
inline QString ClockText(fw::TClock::TTimePoint Time) {
    const auto Milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(Time.time_since_epoch()).count();
    return QDateTime::fromMSecsSinceEpoch(Milliseconds).toString(QStringLiteral("HH:mm:ss"));
}

inline Qt::Alignment ToQtAlignment(fw::EAlignment Value) {
    const Qt::Alignment Across = Value == fw::EAlignment::Right    ? Qt::AlignRight
                                 : Value == fw::EAlignment::Center ? Qt::AlignHCenter
                                                                   : Qt::AlignLeft;
    return Across | Qt::AlignVCenter;
}

}  // namespace ws
