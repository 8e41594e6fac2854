// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/MessageList.h"

#include <array>

#include <QApplication>
#include <QStyle>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

struct TLevelLook {
    const char* TextKey;
    const char* ColorKey;
    QStyle::StandardPixmap Icon;
};
// By ELogLevel.
constexpr std::array kLevels{TLevelLook{"Res_LevelInfo", "coAccent", QStyle::SP_MessageBoxInformation},
                             TLevelLook{"Res_LevelWarning", "coWarning", QStyle::SP_MessageBoxWarning},
                             TLevelLook{"Res_LevelError", "coError", QStyle::SP_MessageBoxCritical}};
constexpr std::array kHeaders{"Res_MessageTime", "Res_MessageLevel", "Res_MessageText"};

const TLevelLook& LookOf(fw::ELogLevel Level) { return kLevels[static_cast<size_t>(Level)]; }

}  // namespace

TMessageList::TMessageList(const TRenderContext& Context, TSentence Sentence, QObject* Parent)
    : QAbstractTableModel(Parent), FContext(Context), FSentence(std::move(Sentence)) {
    FLink = fw::TLog::Entries().Connect([this](const fw::TLogEntry& Entry) { Append(Entry); });
}

int TMessageList::rowCount(const QModelIndex& Parent) const {
    return Parent.isValid() ? 0 : static_cast<int>(FMessages.size());
}
int TMessageList::columnCount(const QModelIndex& Parent) const { return Parent.isValid() ? 0 : kColumnCount; }

QString TMessageList::LevelText(fw::ELogLevel Level) const { return FContext.Translate(LookOf(Level).TextKey); }

QVariant TMessageList::data(const QModelIndex& Index, int Role) const {
    if (!Index.isValid() || Index.row() >= rowCount()) return {};
    const TMessage& Message = FMessages[static_cast<size_t>(Index.row())];
    if (Role == Qt::ForegroundRole && Message.Entry.Level != fw::ELogLevel::Info)
        return FContext.Color(LookOf(Message.Entry.Level).ColorKey);
    if (Role == Qt::DecorationRole && Index.column() == kLevel)
        return QApplication::style()->standardIcon(LookOf(Message.Entry.Level).Icon);
    if (Role == Qt::ToolTipRole && Index.column() == kText) return ToQt(FSentence(Message.Entry));
    if (Role != Qt::DisplayRole) return {};
    if (Index.column() == kTime) return ClockText(Message.Time);
    return Index.column() == kLevel ? LevelText(Message.Entry.Level) : ToQt(FSentence(Message.Entry));
}

QVariant TMessageList::headerData(int Section, Qt::Orientation Orientation, int Role) const {
    if (Orientation != Qt::Horizontal || Role != Qt::DisplayRole || Section < 0 || Section >= kColumnCount) return {};
    return FContext.Translate(kHeaders[static_cast<size_t>(Section)]);
}

QString TMessageList::TextOf(int Row) const {
    QStringList Parts;
    for (int Column = 0; Column < kColumnCount; ++Column) Parts << data(index(Row, Column), Qt::DisplayRole).toString();
    return Parts.join(QLatin1Char('\t'));
}

void TMessageList::Append(const fw::TLogEntry& Entry) {
    if (rowCount() >= kMaxMessages) {
        beginRemoveRows({}, 0, 0);
        FMessages.pop_front();
        endRemoveRows();
    }
    beginInsertRows({}, rowCount(), rowCount());
    FMessages.push_back({fw::TClock::Now(), Entry});
    endInsertRows();
    if (Entry.Level == fw::ELogLevel::Info) return;
    FLast = Entry;
    FHasLast = true;
    FLastLevel = Entry.Level;
    ++FUnseen;
    OnProblem();
}

QString TMessageList::LastProblem() const { return FHasLast ? ToQt(FSentence(FLast)) : QString(); }

void TMessageList::MarkSeen() {
    if (FUnseen == 0) return;
    FUnseen = 0;
    OnProblem();
}

void TMessageList::Retranslate() {
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, kColumnCount - 1));
    emit headerDataChanged(Qt::Horizontal, 0, kColumnCount - 1);
    OnProblem();
}

}  // namespace ws
