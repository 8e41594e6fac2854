// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/gui/TestFrame.h"

#include <stdexcept>

#include "framework/services/LanguageManager.h"

namespace gui {

namespace {

fw::Text Translated(const fw::Text& Key) {
    fw::Text Result;
    fw::TCustomLanguageManager::GetInstance().GetResourceString(Result, Const::ResourceStringTag, Key);
    return Result;
}

fw::TGridColumn& AddColumn(fw::TGridTableView& View, int Tag, bool Editing, fw::EValueType Type) {
    fw::TGridColumn& Column = View.CreateColumn();
    Column.Tag = Tag;
    Column.Editing = Editing;
    Column.ValueType = Type;
    Column.SetWidth(100);
    return Column;
}

}  // namespace

fw::Variant TLongTable::GetValue(int32_t Record, int32_t Attribute) {
    if (Record < 0 || Record >= Count) return {};
    return Attribute == kProfit ? fw::Variant(static_cast<double>(Record) - Count / 2)
                                : fw::Variant(static_cast<double>(Record));
}

fw::Text TLongTable::GetDisplayValue(int32_t Record, int32_t Attribute) {
    ++Asked;
    return GetValue(Record, Attribute).AsText();
}

TTestFrame::TTestFrame() {
    SetUpColumns();
    SetUpEvents();
    Down.SetAlignment(fw::EAlignment::Right);
    Account.SetChoices({{"A1", "A1 first"}, {"B2", "B2 second"}});
    Line.PointerVisible = true;
    Line.PointerSize = 3;
    Zero.SetColor(fw::kColorRed);
    Chart.AddSeries(Line);
    Chart.AddSeries(Zero);
    for (auto* Item : {&ComboItem, &DownItem, &UpItem, &AccountItem, &GoItem, &IdleItem}) Top.Add(*Item);
    GridItem.Stretch = 1;
    ChartItem.Stretch = 2;
    DetailItem.Stretch = 1;
    DetailItem.PreferredSize = 200;
    Result.Splitter = true;
    Result.Add(ChartItem);
    Result.Add(DetailItem);
    Result.Stretch = 2;
    Root.Add(Top);
    Root.Add(GridItem);
    Root.Add(Result);
    const std::pair<const char*, fw::TControl*> Named[] = {
        {"combo", &Combo}, {"down", &Down}, {"up", &Up},       {"account", &Account}, {"go", &Go},
        {"idle", &Idle},   {"grid", &Grid}, {"chart", &Chart}, {"detail", &Detail}};
    for (const auto& [Name, Control] : Named) Controls().Attach(Name, *Control);
    TTestFrame::SetLanguage(0);
}

void TTestFrame::SetUpColumns() {
    Grid.BeginUpdate();
    auto& Popup = AddColumn(Grid, kSymbol, true, fw::EValueType::String).SetProperties<fw::TcxPopupEditProperties>();
    Popup.AlwaysShowButton = true;
    Popup.PopupControl = &SymbolPopup;
    Popup.PopupWidth = Popup.PopupHeight = 200;
    Popup.OnValidate = [this](fw::TObject*, fw::Variant& Value, fw::Text& ErrorText, bool& Error) {
        const fw::Text Typed = fw::UpperCase(fw::Trim(Value.AsText()));
        if (Typed == "THROW") throw std::runtime_error("validation");
        Error = !RefuseSymbol.empty() && Typed == RefuseSymbol;
        if (Error) ErrorText = "no such symbol";
        Value = Typed;
        if (!Error && Grid.GetFocusedRecord() == Grid.GetDataController().GetRecordCount() - 1)
            Grid.GetDataController().SetRecordCount(Grid.GetDataController().GetRecordCount() + 1);
    };
    auto& Side = AddColumn(Grid, kSide, true, fw::EValueType::String).SetProperties<fw::TcxComboBoxProperties>();
    Side.FixedList = Side.AlwaysShowButton = true;
    Side.Items = {"Buy", "Sell"};
    for (int Tag : {kPremium, kQty}) {
        auto& Spin = AddColumn(Grid, Tag, true, fw::EValueType::Float).SetProperties<fw::TcxSpinEditProperties>();
        Spin.AlwaysShowButton = Spin.ButtonsLeftAndRight = Spin.FloatValues = true;
        Spin.LeftAlignWhileEditing = false;
        Spin.Alignment = fw::EAlignment::Right;
        if (Tag == kQty) Spin.MinValue = 0;
    }
    AddColumn(Grid, kRemark, false, fw::EValueType::String);
    Grid.EndUpdate();
    Grid.GetDataController().SetRecordCount(1);
    Grid.Options.ColumnAutoWidth = Grid.Options.CellEndEllipsis = true;
    Detail.BeginUpdate();
    AddColumn(Detail, kPrice, false, fw::EValueType::Float);
    AddColumn(Detail, kProfit, false, fw::EValueType::Float);
    Detail.EndUpdate();
    Detail.Options.ColumnAutoWidth = Detail.Options.CellHints = true;
    Detail.SetCustomDataSource(&Source);
    for (int i = 0; i < Detail.GetColumnCount(); ++i)
        Detail.GetColumn(i)->OnGetDisplayText = [this](fw::TGridColumn& Column, int Record, fw::Text& Shown) {
            Shown = Table().GetDisplayValue(Record, Column.Tag);
        };
}

void TTestFrame::SetUpEvents() {
    Grid.OnEditing = [this](fw::TGridTableView&, fw::TGridColumn& Column, bool& Allow) {
        Allow = AllowEditing && Column.Editing;
    };
    Grid.OnGetContentStyle = [this](int Row, fw::TGridColumn&) -> fw::TStyle* {
        return Grid.GetDataController().GetValue(Row, 0).IsNull() ? nullptr : &InputStyle;
    };
    Combo.OnChange = [this](fw::TObject*) { Seen.push_back("combo " + Combo.GetText()); };
    Down.OnExit = [this](fw::TObject*) { Seen.push_back("down " + Down.GetText()); };
    Up.OnKeyPress = [this](fw::TObject*, char& Key) {
        if (Key == fw::kKeyEnter) Seen.push_back("enter " + Up.GetText());
    };
    Account.OnExit = [this](fw::TObject*) { Seen.push_back("account " + Account.GetHint()); };
    Go.OnClick = [this](fw::TObject*) {
        Seen.push_back("go " + Cell(0, kQty).AsText());
        if (!Combo.GetText().empty() && Combo.GetText() == "throw") throw std::runtime_error("the handler broke");
    };
    Chart.OnMouseMove = [this](fw::TObject*, int, int X, int Y) {
        const fw::TPoint At = Chart.ClientToScreen({X, Y});
        Hint.ShowHint(At.X, At.Y, "X:" + fw::Variant(Chart.CursorAxisX()).AsText());
    };
    Chart.OnMouseLeave = [this](fw::TObject*) { Hint.HideHint(); };
    MoreButton.OnClick = [this](fw::TObject*) {
        MoreButton.State = MoreButton.State ? 0 : 1;
        MoreButton.ImageIndex = MoreButton.State;
        MoreButton.Hint = Translated(MoreButton.State ? "Res_More" : "Res_Less");
        DetailItem.SetVisible(MoreButton.State == 0);
        fw::Baseview::SendViewNotify(this, fw::kViewNotifyCaptionButtons);
    };
    BrokenButton.OnClick = [](fw::TObject*) { throw std::runtime_error("the caption button broke"); };
}

bool TTestFrame::SetLanguage(int) {
    ComboItem.SetCaption(Translated("Res_Exchange"));
    DownItem.SetCaption(Translated("Res_DownPrice"));
    UpItem.SetCaption(Translated("Res_UpPrice"));
    AccountItem.SetCaption(Translated("Res_Account"));
    Go.SetCaption(Translated("Res_Calculate"));
    Idle.SetCaption(Translated("Res_Submit"));
    Grid.GetColumn(0)->SetCaption(Translated("Res_Symbol"));
    Seen.push_back("language");
    return true;
}

int TTestFrame::ColumnOf(int Tag) {
    for (int i = 0; i < Grid.GetColumnCount(); ++i)
        if (Grid.GetColumn(i)->Tag == Tag) return i;
    return -1;
}

fw::Variant TTestFrame::Cell(int Record, int Tag) { return Grid.GetDataController().GetValue(Record, ColumnOf(Tag)); }

bool TTestView::Visible = true;
bool TTestView::FailToOpen = false;

fw::Text TTestView::GetMenuCaption(int Level) { return Translated(Level == 0 ? "Res_Account" : "Res_Ventiq"); }

int64_t TTestView::OpenNewInstance() {
    if (FailToOpen) throw std::runtime_error("no room for a view");
    auto Frame = std::make_unique<TTestFrame>();
    const int64_t Handle = Frame->GetHandle();
    AddView(std::move(Frame));
    return Handle;
}

bool TTestView::GetDefaultSize(int& Width, int& Height) {
    Width = 700;
    Height = 500;
    return true;
}

bool TTestView::GetDefaultCaption(fw::Text& Caption) {
    Caption = Translated("Res_Ventiq");
    return true;
}

}  // namespace gui
