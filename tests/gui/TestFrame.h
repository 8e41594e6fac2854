// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/controls/Button.h"
#include "framework/controls/Chart.h"
#include "framework/controls/ComboBox.h"
#include "framework/controls/GridTableView.h"
#include "framework/controls/PopupEdit.h"
#include "framework/controls/SpinEdit.h"
#include "framework/view/BaseView.h"

namespace gui {

inline constexpr int kSymbol = 0, kSide = 11, kPremium = 103, kQty = 4, kRemark = 25, kPrice = 3, kProfit = 607;

// Price k and P/L k - count/2 in row k, for any count.
class TLongTable : public fw::TCustomDataControl {
public:
    int32_t Count = 0;
    int Asked = 0;  // display texts asked for since a test last cleared it
    int32_t GetCount() override { return Count; }
    fw::Variant GetValue(int32_t Record, int32_t Attribute) override;
    fw::Text GetDisplayValue(int32_t Record, int32_t Attribute) override;
};

// A form with one control of every kind, and the simplest rules.
class TTestFrame : public fw::TFrame {
public:
    TTestFrame();
    fw::TLayoutGroup* GetLayout() override { return &Root; }
    fw::THintController* GetHintController() override { return &Hint; }
    bool SetLanguage(int LanguageId) override;
    fw::TCaptionButtonList* GetViewCaptionButtons() override { return &Buttons; }
    fw::TImageList* GetViewCaptionButtonImageList() override { return &Images; }

    TLongTable& Table() { return static_cast<TLongTable&>(*Source.GetDataControl()); }
    fw::Variant Cell(int Record, int Tag);
    int ColumnOf(int Tag);

    fw::TComboBox Combo;
    fw::TSpinEdit Down, Up;
    fw::TPopupEdit Account;
    fw::TButton Go, Idle;
    fw::TGridTableView Grid, Detail;
    fw::TGridLevel GridLevel{Grid}, DetailLevel{Detail};
    fw::TGrid GridControl{GridLevel}, DetailControl{DetailLevel};
    fw::TCustomGridDataSource Source{[] { return std::make_unique<TLongTable>(); }};
    fw::TChart Chart;
    fw::TLineSeries Line, Zero;
    fw::THintController Hint;
    fw::TStyle InputStyle;
    fw::TPopupControl SymbolPopup;
    fw::TCaptionButton MoreButton, BrokenButton;
    fw::TCaptionButtonList Buttons{&MoreButton, &BrokenButton};
    fw::TImageList Images{{"less", "more", "show-hint", "hide-hint"}};

    fw::TLayoutItem ComboItem{&Combo}, DownItem{&Down}, UpItem{&Up}, AccountItem{&Account}, GoItem{&Go},
        IdleItem{&Idle};
    fw::TLayoutItem GridItem{&GridControl}, ChartItem{&Chart}, DetailItem{&DetailControl};
    fw::TLayoutGroup Top{fw::EDirection::Horizontal}, Result{fw::EDirection::Horizontal},
        Root{fw::EDirection::Vertical};

    // What the form's handlers saw.
    std::vector<fw::Text> Seen;
    bool AllowEditing = true;
    fw::Text RefuseSymbol;  // a symbol that the validation refuses with an error

private:
    void SetUpColumns();
    void SetUpEvents();
};

// Its descriptor, registered with the class registry by RegisterTestViews.
class TTestView : public fw::TIBaseView {
public:
    fw::Text GetName() override { return "Test_1"; }
    int GetViewID() override { return 1; }
    int GetMenuLevel() override { return 2; }
    int GetMenuIndex(int Level) override { return Level == 0 ? 3100 : 3950; }
    int GetMenuID(int Level) override { return Level == 0 ? 103 : 1; }
    fw::Text GetMenuCaption(int Level) override;
    int GetMenuGroupIndex(int) override { return 0; }
    bool GetIsVisible() override { return Visible; }
    int64_t OpenNewInstance() override;
    bool GetDefaultSize(int& Width, int& Height) override;
    bool GetDefaultCaption(fw::Text& Caption) override;

    static bool Visible;
    static bool FailToOpen;
};

}  // namespace gui
