// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/views/TradingFrame.h"

#include <ctime>

#include "framework/services/LookAndFeelService.h"
#include "framework/services/TimerControl.h"

namespace ws {

namespace {

struct TInkLook {
    const char* ColorKey;  // null: the table's own
    bool Bold;
};
// By EInk.
constexpr std::array<TInkLook, 8> kLooks{{{nullptr, false},
                                          {"coBuy", false},
                                          {"coSell", false},
                                          {"coProfit", false},
                                          {"coLoss", false},
                                          {"coWarning", true},
                                          {"coPlaceholderText", false},
                                          {nullptr, true}}};

std::tm Local(std::time_t Seconds) {
    std::tm Result{};
    localtime_r(&Seconds, &Result);
    return Result;
}

}  // namespace

TTradingFrame::TTradingFrame(TTradingDesk& Desk, const char* GridName, const char* NoDataKey)
    : FDesk(Desk), FNoDataKey(NoDataKey) {
    Controls().Attach(GridName, FView);
    FView.Options.ColumnAutoWidth = FView.Options.CellEndEllipsis = FView.Options.CellHints = true;
    FView.Options.HeaderEndEllipsis = true;
    FView.OnGetContentStyle = [this](int Row, fw::TGridColumn& Column) {
        return &FStyles[static_cast<size_t>(InkOf(FView.GetDataRecord(Row), Column.Tag))];
    };
    FGridItem.Stretch = 1;
    FRoot.Add(FGridItem);
    TakeSkin();
    fw::TCustomTimerControl::GetInstance().AddTimerEvent(this, [this](fw::TObject*) {
        if (std::exchange(FChanged, false)) Refresh();
    });
    fw::TCustomLookAndFeelService::GetInstance().AddLookAndFeelChangedEvent(
        [this](fw::TObject*, fw::TObject*) { TakeSkin(); }, this);
}

TTradingFrame::~TTradingFrame() {
    fw::TCustomTimerControl::GetInstance().RemoveTimerEvent(this);
    fw::TCustomLookAndFeelService::GetInstance().RemoveLookAndFeelChangedEvent(this);
}

void TTradingFrame::Show(const fw::TCustomGridDataSource::TFactory& Data, std::span<const TColumn> Columns) {
    FSource = std::make_unique<fw::TCustomGridDataSource>(Data);
    ShowColumns(Columns);
    FView.SetCustomDataSource(FSource.get());
}

void TTradingFrame::ShowColumns(std::span<const TColumn> Columns) {
    FView.BeginUpdate();
    FView.ClearColumns();
    FCaptionKeys.clear();
    for (const TColumn& Each : Columns) {
        fw::TGridColumn& Column = FView.CreateColumn();
        Column.Tag = Each.Id;
        Column.SetWidth(Each.Width);
        Column.ValueType = Each.Numeric ? fw::EValueType::Float : fw::EValueType::String;
        Column.Sorting = true;
        Column.OnGetHint = [this](fw::TGridColumn& Asked, int Record, fw::Text& Hint) {
            Hint = HintOf(FView.GetDataRecord(Record), Asked.Tag, Hint);
        };
        FCaptionKeys.push_back(Each.CaptionKey);
    }
    TranslateColumns();
    FView.EndUpdate();
}

void TTradingFrame::TranslateColumns() {
    FView.Options.NoDataText = Resource(FNoDataKey);
    for (size_t i = 0; i < FCaptionKeys.size(); ++i)
        FView.GetColumn(static_cast<int>(i))->SetCaption(Resource(FCaptionKeys[i]));
}

// Words of the cells are made anew as well; a table sorted by one of them is sorted anew.
bool TTradingFrame::SetLanguage(int) {
    FView.BeginUpdate();
    TranslateColumns();
    Translate();
    FView.EndUpdate();
    if (FSource) FSource->GetDataControl()->NotifyDataChanged();
    return true;
}

void TTradingFrame::TakeSkin() {
    auto& Look = fw::TCustomLookAndFeelService::GetInstance();
    for (size_t i = 0; i < kLooks.size(); ++i) {
        FStyles[i].Filled = false;
        FStyles[i].Bold = kLooks[i].Bold;
        if (kLooks[i].ColorKey) FStyles[i].TextColor = Look.GetSkinColor(0, kLooks[i].ColorKey);
    }
    FView.Repaint();
}

fw::Text WallTime(int64_t Time) {
    const std::tm At = Local(static_cast<std::time_t>(Time / 1000));
    const std::tm Now = Local(std::chrono::system_clock::to_time_t(fw::TClock::Now()));
    const bool Today = At.tm_year == Now.tm_year && At.tm_yday == Now.tm_yday;
    char Buffer[32];
    return {Buffer, std::strftime(Buffer, sizeof Buffer, Today ? "%H:%M:%S" : "%Y/%m/%d %H:%M:%S", &At)};
}

}  // namespace ws
