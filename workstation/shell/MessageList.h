// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>

#include <QAbstractTableModel>

#include "framework/base/Clock.h"
#include "framework/base/Log.h"
#include "workstation/renderers/RenderContext.h"

namespace ws {

// The log as a table: time, level and text in the language of the moment. The newest kMaxMessages entries are kept.
class TMessageList : public QAbstractTableModel {
public:
    // Sentence of a key and its arguments in the current language.
    using TSentence = std::function<std::string(const fw::TLogEntry& Entry)>;
    TMessageList(const TRenderContext& Context, TSentence Sentence, QObject* Parent);

    enum EColumn { kTime, kLevel, kText, kColumnCount };

    int rowCount(const QModelIndex& Parent = {}) const override;
    int columnCount(const QModelIndex& Parent = {}) const override;
    QVariant data(const QModelIndex& Index, int Role) const override;
    QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override;

    QString TextOf(int Row) const;  // one line: time, level, text
    QString LastProblem() const;    // text of the newest warning or error; empty without
    fw::ELogLevel LastProblemLevel() const { return FLastLevel; }
    int UnseenProblems() const { return FUnseen; }
    void MarkSeen();
    void Retranslate();

    fw::TSignal<> OnProblem;  // a warning or an error came, or was seen

private:
    struct TMessage {
        fw::TClock::TTimePoint Time;
        fw::TLogEntry Entry;
    };
    void Append(const fw::TLogEntry& Entry);
    QString LevelText(fw::ELogLevel Level) const;

    const TRenderContext& FContext;
    TSentence FSentence;
    std::deque<TMessage> FMessages;
    fw::TLogEntry FLast;
    bool FHasLast = false;
    fw::ELogLevel FLastLevel = fw::ELogLevel::Info;
    int FUnseen = 0;
    fw::TConnection FLink;
};

inline constexpr int kMaxMessages = 2000;

}  // namespace ws
