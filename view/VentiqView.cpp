// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqView.h"

#include "framework/base/Dispatch.h"
#include "framework/base/FlagGuard.h"
#include "framework/services/ConfigManager.h"
#include "framework/services/GlobalChannelManager.h"
#include "framework/services/LookAndFeelService.h"
#include "framework/services/TimerControl.h"
#include "registration/VentiqConstDef.h"

namespace ventiq {

namespace {
TUnitCounter UnitCounter;
}

void InitializeVentiqView() { UnitCounter.Enter(); }
void FinalizeVentiqView() { UnitCounter.Leave(); }

TVentiqFrame::TVentiqFrame(EStage) {
    FContext.FOwner = this;
    FForm.Attach(Controls());
    WireSelectors();
    WirePositionGrid();
    WireRangeInputs();
    FConfig.OnAlertColor = [this](TColor Alert) { FChart.SetAlertColor(Alert); };
    FSubscriptions.OnReCheckSymbol = [this](const Text& Symbol) { FSymbolEntry.ReCheckSymbol(Symbol); };
}

// The object counts as built once the other constructor has returned: what a step of Build raises runs the destructor.
TVentiqFrame::TVentiqFrame() : TVentiqFrame(EStage::Wired) { Build(); }

TVentiqFrame::~TVentiqFrame() { Release(); }

// The order is the host's contract; a recording host in the tests holds every line of it.
void TVentiqFrame::Build() {
    FRangeInputs.InitEditors();
    FCaptionButtons.CreateList();
    FCaptionButtons.CreateButtons();
    FCaptionButtons.UpdateCaptionButtons();
    FConfig.ConfigUpdate(nullptr, nullptr);
    FPositionGrid.InitializeGrid();
    FDetailGrid.InitializeGrid();
    FChart.InitChart();
    FDetailGrid.CreateDataSource();
    CreateDataControl();
    FPositionGrid.SetRecordCount(1);
    FSelectors.RegisterAccountEditor();
    FSelectors.InitExchangeList();
    FollowLookAndFeel();
    SetLanguage(0);
    FollowHost();
}

// Every step stands alone: one that fails, or that undoes what was never done, does not keep the next from running.
void TVentiqFrame::Release() {
    const auto Step = [](const char* Name, const std::function<void()>& Body) { Dispatch(Name, Body); };
    Step("Release 109", [this] { TCustomGlobalChannelManager::GetInstance().Unsubscribe(kChannelLayoutLoaded, this); });
    Step("Release 104", [this] { TCustomGlobalChannelManager::GetInstance().Unsubscribe(kChannelMainFormShow, this); });
    Step("Release skin", [this] { TCustomLookAndFeelService::GetInstance().RemoveLookAndFeelChangedEvent(this); });
    Step("Release timer", [this] { TCustomTimerControl::GetInstance().RemoveTimerEvent(this); });
    Step("Release configuration", [this] { TCustomConfigManager::GetInstance().RemoveConfigUpdateEvent(this); });
    Step("Release account", [this] { FSelectors.RemoveAccountEditor(); });
    Step("Release market data", [this] { FSubscriptions.ClearSubscribeList(); });
    // The detail control goes first; the data control does not touch it any more.
    Step("Release details", [this] { FDetailGrid.FreeDataSource(); });
    Step("Release legs", [this] { FContext.FMyDataControl.reset(); });
}

void TVentiqFrame::WireSelectors() {
    FForm.cmbExchange.OnChange = [this](TObject* Sender) { FSelectors.cmbExchangePropertiesChange(Sender); };
    FForm.cmbSeries.OnChange = [this](TObject* Sender) { FSelectors.cmbSeriesPropertiesChange(Sender); };
    FForm.cmbMonth.OnChange = [this](TObject* Sender) { FSelectors.cmbExpiryPropertiesChange(Sender); };
    FForm.edtAccount.OnExit = [this](TObject* Sender) { FSelectors.edtAccountExit(Sender); };
    FForm.edtAccount.OnKeyPress = [this](TObject* Sender, char& Key) { FSelectors.edtAccountKeyPress(Sender, Key); };
    FSelectors.OnMonthSelected = [this] { FRangeInputs.UpdateDefaultPrice(nullptr); };
}

void TVentiqFrame::WirePositionGrid() {
    auto& View = FForm.PositionGridView;
    View.OnEditing = [this](TGridTableView& Of, TGridColumn& Column, bool& Allow) {
        FCellEditing.PositionGridViewEditing(Of, Column, Allow);
    };
    View.OnEditKeyDown = [this](TGridTableView& Of, TGridColumn& Column, TCellEditor& Editor, int& Key, int Shift) {
        FCellEditing.PositionGridViewEditKeyDown(Of, Column, Editor, Key, Shift);
    };
    View.OnGetContentStyle = [this](int Row, TGridColumn& Column) {
        return FPositionGrid.PositionGridViewStylesGetContentStyle(Row, Column);
    };
    FPositionGrid.OnSideChange = [this](TObject* Sender) { FCellEditing.epiSidePropertiesChange(Sender); };
    FPositionGrid.OnSidePopup = [this](TObject* Sender) { FCellEditing.epiSidePropertiesPopup(Sender); };
    FPositionGrid.OnSymbolValidate = [this](TObject* Sender, Variant& Value, Text& ErrorText, bool& Error) {
        FSymbolEntry.SymbolOnValidate(Sender, Value, ErrorText, Error);
    };
    FPositionGrid.OnSelectSymbol = [this](TObject* Sender, TObject* Data) {
        FSymbolEntry.HandleSelectSymbol(Sender, Data);
    };
    FPositionGrid.OnQuantityChange = [this](TObject* Sender) { FCellEditing.QuantityChange(Sender); };
    FPositionGrid.OnPriceChange = [this](TObject* Sender) { FCellEditing.PriceChange(Sender); };
    FPositionGrid.OnOpenCloseChange = [this](TObject* Sender) { FCellEditing.OpenCloseChange(Sender); };
    FPositionGrid.OnPrincipalChange = [this](TObject* Sender) { FCellEditing.PrincipalChange(Sender); };
}

void TVentiqFrame::WireRangeInputs() {
    FForm.btnCalc.OnClick = [this](TObject* Sender) { FRangeInputs.btnCalcClick(Sender); };
    FForm.btnLoad.OnClick = [this](TObject* Sender) { FPositionLoader.btnLoadClick(Sender); };
    FForm.btnSubmit.OnClick = [this](TObject* Sender) { FOrderCollector.btnSubmitClick(Sender); };
    FForm.btnClear.OnClick = [this](TObject* Sender) { FPositionGrid.btnClearClick(Sender); };
    FForm.edtDown.OnExit = [this](TObject* Sender) { FRangeInputs.edtDownExit(Sender); };
    FForm.edtUp.OnExit = [this](TObject* Sender) { FRangeInputs.edtUpExit(Sender); };
    FForm.edtInterval.OnExit = [this](TObject* Sender) { FRangeInputs.edtIntervalExit(Sender); };
    FForm.edtDown.OnKeyPress = [this](TObject* Sender, char& Key) { FRangeInputs.edtDownKeyPress(Sender, Key); };
    FForm.edtUp.OnKeyPress = [this](TObject* Sender, char& Key) { FRangeInputs.edtUpKeyPress(Sender, Key); };
    FForm.edtInterval.OnKeyPress = [this](TObject* Sender, char& Key) {
        FRangeInputs.edtIntervalKeyPress(Sender, Key);
    };
}

void TVentiqFrame::CreateDataControl() {
    FContext.FMyDataControl = std::make_unique<TCustomVentiqDataControl>(nullptr);
    auto& Control = *FContext.FMyDataControl;
    Control.SetOnMarketListUpdate([this](TObject* Sender) { FSelectors.MarketListUpdate(Sender); });
    Control.SetDetailControl(FDetailGrid.GetDataControl());
    Control.SetOnDataUpdate([this](TObject* Sender) {
        FResultNote.Calculated();
        FChart.DataChanged(Sender);
    });
    Control.SetOnUpdateDefaultPrice([this](TObject* Sender) { FRangeInputs.UpdateDefaultPrice(Sender); });
}

void TVentiqFrame::FollowLookAndFeel() {
    TCustomLookAndFeelService::GetInstance().AddLookAndFeelChangedEvent(
        [this](TObject* Sender, TObject* Data) { FConfig.LookAndFeelChanged(Sender, Data); }, this);
    FConfig.LookAndFeelChanged(nullptr, nullptr);
}

void TVentiqFrame::FollowHost() {
    TCustomTimerControl::GetInstance().AddTimerEvent(this, [this](TObject* Sender) {
        FPositionGrid.TimerEvent(Sender);
        FResultNote.Check();
    });
    TCustomConfigManager::GetInstance().AddConfigUpdateEvent(
        [this](TObject* Sender, TObject* Data) { FConfig.ConfigUpdate(Sender, Data); }, this);
    auto& Channels = TCustomGlobalChannelManager::GetInstance();
    Channels.Subscribe(
        kChannelLayoutLoaded, [this](TObject* Sender, TObject* Data) { FLayoutData.LoadLayoutComp(Sender, Data); },
        this);
    Channels.Subscribe(
        kChannelMainFormShow, [this](TObject* Sender, TObject* Data) { FLayoutData.MainFormShow(Sender, Data); }, this);
}

bool TVentiqFrame::SetLanguage(int) {
    FTexts.UpdateCaptions();
    FPositionGrid.UpdateGridHeader();
    FDetailGrid.UpdateGridHeader();
    // Deliberate: cells first. They hold translated texts and are found by the old ones, which the steps below replace.
    FPositionGrid.UpdateGridContent();
    FTexts.UpdateCallPut();
    {
        TFlagGuard Rewriting(FSelectors.FUpdatingLanguage, EGuardEnd::Clear);
        FSelectors.UpdateExchangeTexts();
        FSelectors.UpdateSeriesTexts();
    }
    if (FContext.FMyDataControl) FChart.UpdateTitle();
    FTexts.UpdateSideItems();
    FFlags.UpdateOpenCloseTexts();
    FFlags.UpdatePrincipalTexts();
    return true;
}

bool TVentiqFrame::SetGroupID(const Text& GroupId) {
    if (GroupId != FContext.FGroupID) {
        FContext.FGroupID = GroupId;
        FSelectors.RegisterAccountEditor();
    }
    return true;
}

bool TVentiqFrame::GetGroupID(Text& GroupId) {
    GroupId = FContext.FGroupID;
    return true;
}

}  // namespace ventiq
