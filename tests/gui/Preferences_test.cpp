// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences dialog over the whole program.
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QToolTip>

#include "framework/base/Log.h"
#include "framework/base/NumberFormat.h"
#include "tests/gui/MainWindowTest.h"
#include "workstation/renderers/GridModel.h"
#include "workstation/renderers/QtText.h"
#include "workstation/resources/Skins.h"
#include "workstation/shell/ColorField.h"

namespace gui {
namespace {

class PreferencesTest : public MainWindowTest {
protected:
    ~PreferencesTest() override {
        if (Window) Window->SetSkin("Light");
        Context.SetScale(100);
    }
    ws::TPreferencesDialog& Dialog() {
        if (!Window->Preferences().Dialog()) Window->Commands().Run("file.preferences");
        if (!Window->Preferences().Dialog()) throw std::runtime_error("the dialog does not open");
        return *Window->Preferences().Dialog();
    }
    ws::TPreferenceField& Field(const char* Key) {
        auto* Found = Dialog().Field(Key);
        if (!Found) throw std::runtime_error(std::string(Key) + " is on no page");
        return *Found;
    }
    // As a user: the entry is chosen with the keyboard.
    void Choose(const char* Key, int Index) {
        auto& Combo = dynamic_cast<QComboBox&>(Field(Key).Editor());
        Combo.setFocus();
        QTest::keyClick(&Combo, Qt::Key_Home);
        for (int i = 0; i < Index; ++i) QTest::keyClick(&Combo, Qt::Key_Down);
        ASSERT_EQ(Combo.currentIndex(), Index);
    }
    void Type(const char* Key, const char* Text) {
        auto& Line = dynamic_cast<QLineEdit&>(Field(Key).Editor());
        Line.setFocus();
        Line.selectAll();
        QTest::keyClick(&Line, Qt::Key_Delete);
        QTest::keyClicks(&Line, QString::fromUtf8(Text));
        QTest::keyClick(&Line, Qt::Key_Return);
    }
    std::optional<std::string> Stored(const char* Section, const char* Key) {
        return Workstation->Store().ReadSetting(Section, Key);
    }
};

TEST_F(PreferencesTest, EveryPreferenceHasANamedFieldWithItsLabel) {
    for (const ws::TPreference& Each : ws::Preferences()) {
        SCOPED_TRACE(Each.Key);
        auto& Shown = Field(Each.Key.c_str());
        const QString Caption = Context.Translate(Each.CaptionKey.c_str());
        auto* Interface = QAccessible::queryAccessibleInterface(&Shown.Editor());
        ASSERT_TRUE(Interface);
        EXPECT_EQ(Shown.Editor().accessibleName(), Caption);
        EXPECT_TRUE(Interface->text(QAccessible::Name) == Caption || Interface->role() == QAccessible::ComboBox);
        bool Labelled = Shown.NamesItself();
        for (QLabel* Label : Dialog().findChildren<QLabel*>())
            Labelled |= Label->buddy() == &Shown.Editor() && Label->text() == Caption;
        EXPECT_TRUE(Labelled);
        EXPECT_NE(Shown.Editor().focusPolicy() & Qt::TabFocus, 0);
    }
}

TEST_F(PreferencesTest, SkinAndPaletteHoldAtOnceInEveryOpenView) {
    PlayFirstStart();
    Choose("Skin", 2);
    EXPECT_EQ(Context.GetSkin(), "HighContrast");
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), Context.Color("coWindow"));
    EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipText), Context.Color("coToolTipText"));
    const QColor Profit = Context.Color("coProfit"), Loss = Context.Color("coLoss");
    Choose("Palette", 1);
    EXPECT_EQ(Context.Color("coProfit"), Loss);
    EXPECT_EQ(Context.Color("coLoss"), Profit);
    EXPECT_EQ(Stored("Workstation", "Skin"), "HighContrast");
    EXPECT_EQ(Stored("Workstation", "Palette"), "RedUp");
}

TEST_F(PreferencesTest, TheLanguageSwitchesTheDialogItself) {
    EXPECT_EQ(Dialog().windowTitle(), "Preferences");
    Choose("Language", 2);
    EXPECT_EQ(Dialog().windowTitle(), Context.Translate("Res_PreferencesTitle"));
    EXPECT_NE(Dialog().windowTitle(), "Preferences");
    EXPECT_FALSE(MenuTexts().contains("&File"));
    EXPECT_EQ(Field("Skin").Editor().accessibleName(), Context.Translate("Res_PreferenceSkin"));
    EXPECT_EQ(dynamic_cast<QComboBox&>(Field("Language").Editor()).currentIndex(), 2);
    Dialog().Pages().setCurrentRow(3);
    EXPECT_EQ(Dialog().Pages().currentItem()->text(), Context.Translate("Res_PreferencesPageShortcuts"));
}

TEST_F(PreferencesTest, WhatAMenuChoosesIsSeenInTheDialog) {
    Dialog();
    Window->SetSkin("Dark");
    EXPECT_EQ(dynamic_cast<QComboBox&>(Field("Skin").Editor()).currentIndex(), 1);
    Window->SetLanguage(1);
    EXPECT_EQ(dynamic_cast<QComboBox&>(Field("Language").Editor()).currentIndex(), 1);
}

TEST_F(PreferencesTest, ColoursAreOfTheSkinAndGoBackToItsOwn) {
    PlayFirstStart();
    const auto RowColor = [this] { return Grid().model()->index(0, 0).data(Qt::BackgroundRole).value<QColor>(); };
    const QColor Own = RowColor();
    Type("coPayOffInputRowBgColor", "#00ff80");
    EXPECT_EQ(RowColor(), QColor("#00FF80"));
    EXPECT_EQ(Stored("Light", "coPayOffInputRowBgColor"), "#00FF80");
    Window->SetSkin("Dark");
    EXPECT_NE(RowColor(), QColor("#00FF80"));
    Window->SetSkin("Light");
    EXPECT_EQ(RowColor(), QColor("#00FF80"));
    auto& Color = dynamic_cast<ws::TColorField&>(Field("coPayOffInputRowBgColor"));
    ASSERT_TRUE(Color.SkinsOwnButton().isEnabled());
    Color.SkinsOwnButton().click();
    EXPECT_EQ(RowColor(), Own);
    EXPECT_EQ(Stored("Light", "coPayOffInputRowBgColor"), std::nullopt);
    EXPECT_FALSE(Color.SkinsOwnButton().isEnabled());
}

TEST_F(PreferencesTest, ATextThatIsNoColourIsRefusedWithASentence) {
    Type("coPayOffAlertSeriesColor", "#12");
    EXPECT_TRUE(Field("coPayOffAlertSeriesColor").Refusal().contains("#12"));
    EXPECT_EQ(Stored("Light", "coPayOffAlertSeriesColor"), std::nullopt);
    Window->SetLanguage(1);
    EXPECT_TRUE(Field("coPayOffAlertSeriesColor").Refusal().contains(QString::fromUtf8("並非顏色")));
    Type("coPayOffAlertSeriesColor", "#123456");
    EXPECT_EQ(Field("coPayOffAlertSeriesColor").Refusal(), "");
    EXPECT_EQ(Stored("Light", "coPayOffAlertSeriesColor"), "#123456");
}

// The text of a row of any colour can be read.
TEST_F(PreferencesTest, TheTextOfTheInputRowTurnsBlackOrWhite) {
    PlayFirstStart();
    const auto Rgb = [](const QColor& C) {
        return ws::TRgb{static_cast<uint8_t>(C.red()), static_cast<uint8_t>(C.green()), static_cast<uint8_t>(C.blue())};
    };
    for (const char* Skin : {"Light", "Dark", "HighContrast"}) {
        Window->SetSkin(Skin);
        for (const char* Color : {"#000000", "#FFFFFF", "#777777", "#1C2430", "#E4E8EC", "#FF0000", "#0000FF"}) {
            SCOPED_TRACE(std::string(Skin) + " " + Color);
            Type("coPayOffInputRowBgColor", Color);
            const QModelIndex Cell = Grid().model()->index(0, 0);
            ASSERT_EQ(Cell.data(Qt::BackgroundRole).value<QColor>(), QColor(Color));
            EXPECT_GE(ws::ContrastRatio(Rgb(Cell.data(Qt::ForegroundRole).value<QColor>()), *ws::ParseRgb(Color)), 4.5);
        }
    }
}

TEST_F(PreferencesTest, LimitsAreReadInTheNumberFormatAndStoredWithout) {
    Type("SoftQty", "1,500");
    EXPECT_EQ(Stored("Trading", "SoftQty"), "1500");
    EXPECT_EQ(Workstation->OrderFacts().Limits().SoftQty, 1500);
    Choose("NumberFormat", 3);
    EXPECT_EQ(dynamic_cast<QLineEdit&>(Field("SoftQty").Editor()).text(), ws::ToQt(fw::FormatNumber(1500, 6, true)));
    Choose("NumberFormat", 0);
    for (const char* Wrong : {"-1", "many", "1.234,5.6"}) {
        Type("SoftQty", Wrong);
        EXPECT_TRUE(Field("SoftQty").Refusal().contains(Wrong)) << Wrong;
        EXPECT_EQ(Stored("Trading", "SoftQty"), "1500");
    }
    Type("SoftQty", "");
    EXPECT_EQ(Stored("Trading", "SoftQty"), std::nullopt);
    EXPECT_EQ(Field("SoftQty").Refusal(), "");
    EXPECT_EQ(dynamic_cast<QLineEdit&>(Field("SoftQty").Editor()).text(), "500");
}

TEST_F(PreferencesTest, FlagsAndTheAveragePriceModeAreStored) {
    auto& Drafts = dynamic_cast<QCheckBox&>(Field("RestoreDrafts").Editor());
    EXPECT_TRUE(Drafts.isChecked());
    Drafts.setFocus();
    QTest::keyClick(&Drafts, Qt::Key_Space);
    EXPECT_EQ(Workstation->Config().ReadString("Workstation", "RestoreDrafts"), "0");
    auto& Columns = dynamic_cast<QCheckBox&>(Field("KeepColumnLayout").Editor());
    Columns.click();
    EXPECT_FALSE(Workstation->Config().GetKeepColumnLayout());
    Choose("PVAvgPriceMode", 2);
    EXPECT_EQ(Workstation->Config().ReadInteger(Workstation->Config().GetUserSection(), "PVAvgPriceMode"), 2);
}

TEST_F(PreferencesTest, UndoAndCancelPutBackWhatWasThere) {
    Choose("Skin", 1);
    EXPECT_TRUE(Dialog().UndoButton().isEnabled());
    Dialog().UndoButton().click();
    EXPECT_EQ(Context.GetSkin(), "Light");
    EXPECT_EQ(dynamic_cast<QComboBox&>(Field("Skin").Editor()).currentIndex(), 0);
    EXPECT_FALSE(Dialog().UndoButton().isEnabled());
    Choose("ScaleSize", 4);
    Choose("Language", 1);
    QTest::keyClick(&Dialog(), Qt::Key_Escape);
    EXPECT_EQ(Context.GetScale(), 100);
    EXPECT_EQ(Workstation->Language().GetLanguage(), 0);
    EXPECT_TRUE(MenuTexts().contains("&File"));
    EXPECT_EQ(Stored("OMS_TRADEPLATFORM", "ScaleSize"), std::nullopt);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Window->Preferences().Dialog() == nullptr; }));
    Choose("Skin", 1);
    Dialog().CloseButton().click();
    EXPECT_EQ(Stored("Workstation", "Skin"), "Dark");
}

// --- shortcuts

class ShortcutPageTest : public PreferencesTest {
protected:
    ws::TShortcutPage& Page() {
        Dialog().Pages().setCurrentRow(3);
        return Dialog().Shortcuts();
    }
    void Pick(const char* Id) {
        const auto All = Window->Commands().All();
        for (size_t i = 0; i < All.size(); ++i)
            if (All[i].Id == Id) return Page().Table().setCurrentCell(static_cast<int>(i), 0);
        throw std::runtime_error(std::string(Id) + " is not listed");
    }
    QString KeysOf(const char* Id) const {
        return Window->Commands().Action(Id)->shortcut().toString(QKeySequence::PortableText);
    }
};

TEST_F(ShortcutPageTest, PressedKeysBecomeTheCommandsAndAreRemembered) {
    Pick("file.import");
    QTest::keyClick(&Page().Line(), Qt::Key_J, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(KeysOf("file.import"), "Ctrl+Shift+J");
    EXPECT_EQ(Stored("Shortcuts", "file.import"), "Ctrl+Shift+J");
    EXPECT_EQ(Page().Table().item(Page().Table().currentRow(), 1)->text(), "Ctrl+Shift+J");
    EXPECT_TRUE(Page().ResetButton().isEnabled());
    Page().ResetButton().click();
    EXPECT_EQ(KeysOf("file.import"), "Ctrl+I");
    EXPECT_FALSE(Page().ResetButton().isEnabled());
    EXPECT_EQ(Stored("Shortcuts", "file.import"), std::nullopt);
}

TEST_F(ShortcutPageTest, KeysOfAnotherCommandAreRefusedByItsName) {
    Pick("file.import");
    QTest::keyClick(&Page().Line(), Qt::Key_F6);
    EXPECT_EQ(KeysOf("file.import"), "Ctrl+I");
    EXPECT_TRUE(Page().Said().contains("F6")) << ws::FromQt(Page().Said());
    const auto All = Window->Commands().All();
    const auto Owner = std::find_if(All.begin(), All.end(), [](const auto& Each) { return Each.Id == "panel.next"; });
    ASSERT_NE(Owner, All.end());
    EXPECT_TRUE(Page().Said().contains(Owner->Caption)) << ws::FromQt(Page().Said());
    EXPECT_EQ(Stored("Shortcuts", "file.import"), std::nullopt);
}

TEST_F(ShortcutPageTest, KeysThatAreNeededForTypingAreRefused) {
    Pick("file.import");
    const std::pair<Qt::Key, Qt::KeyboardModifiers> Typing[] = {
        {Qt::Key_A, {}},  {Qt::Key_A, Qt::ShiftModifier},   {Qt::Key_Return, {}},
        {Qt::Key_F2, {}}, {Qt::Key_D, Qt::ControlModifier}, {Qt::Key_5, Qt::KeypadModifier}};
    for (const auto& [Key, Modifiers] : Typing) {
        QTest::keyClick(&Page().Line(), Key, Modifiers);
        EXPECT_EQ(KeysOf("file.import"), "Ctrl+I");
        EXPECT_NE(Page().Said(), "");
    }
    QTest::keyClick(&Page().Line(), Qt::Key_F5);
    EXPECT_EQ(KeysOf("file.import"), "F5");
    EXPECT_EQ(Page().Said(), "");
}

TEST_F(ShortcutPageTest, KeysThatControlsAnswerToStay) {
    Pick("edit.copy");
    EXPECT_FALSE(Page().Line().isEnabled());
    EXPECT_NE(Page().Said(), "");
    Pick("file.import");
    QTest::keyClick(&Page().Line(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(KeysOf("file.import"), "Ctrl+I");
}

TEST_F(ShortcutPageTest, AllKeysGoBackTogetherAndSoDoesAVisit) {
    Pick("file.import");
    QTest::keyClick(&Page().Line(), Qt::Key_F5);
    Pick("help.about");
    QTest::keyClick(&Page().Line(), Qt::Key_F7);
    Page().ResetAllButton().click();
    EXPECT_EQ(KeysOf("file.import"), "Ctrl+I");
    EXPECT_EQ(KeysOf("help.about"), "Shift+F1");
    Pick("help.about");
    QTest::keyClick(&Page().Line(), Qt::Key_F7);
    Dialog().reject();
    EXPECT_EQ(KeysOf("help.about"), "Shift+F1");
}

TEST_F(ShortcutPageTest, StoredKeysThatCannotBeAreNamedOnceAndStay) {
    auto& Store = Workstation->Store();
    Store.WriteSetting("Shortcuts", "file.import", "banana");
    Store.WriteSetting("Shortcuts", "help.about", "F6");
    Store.WriteSetting("Shortcuts", "file.exit", "Ctrl+Shift+Q");
    Store.WriteSetting("Shortcuts", "no.such.command", "F9");
    Workstation->Config().Notify();
    Workstation->Config().Notify();
    EXPECT_EQ(KeysOf("file.import"), "Ctrl+I");
    EXPECT_EQ(KeysOf("help.about"), "Shift+F1");
    EXPECT_EQ(KeysOf("file.exit"), "Ctrl+Shift+Q");
    EXPECT_EQ(MessageTexts().filter("banana").size(), 1) << ws::FromQt(MessageTexts().join('\n'));
    EXPECT_EQ(MessageTexts().filter("F6").size(), 1);
    EXPECT_EQ(Stored("Shortcuts", "file.import"), "banana");
}

TEST_F(ShortcutPageTest, NormalKeysHaveOneSpelling) {
    EXPECT_EQ(ws::NormalKeys("shift+ctrl+s"), "Ctrl+Shift+S");
    EXPECT_EQ(ws::NormalKeys("Ctrl+Y; Ctrl+Shift+Z"), "Ctrl+Y; Ctrl+Shift+Z");
    EXPECT_EQ(ws::NormalKeys("Ctrl+,"), "Ctrl+,");
    for (const char* None : {"", "banana", "A", "Shift+A", "Ctrl+K, Ctrl+S", "Ctrl+", "F2", ";", "Tab", "Ctrl+Y; A"})
        EXPECT_EQ(ws::NormalKeys(None), "") << None;
    for (const auto& Each : Window->Commands().All())
        EXPECT_TRUE(Each.ShippedKeys.empty() || !ws::NormalKeys(Each.ShippedKeys).empty()) << Each.Id;
}

// --- scale

class ScaleTest : public PreferencesTest {
protected:
    void SetScale(int PerCent) {
        Workstation->Config().WriteString("OMS_TRADEPLATFORM", "ScaleSize", std::to_string(PerCent));
        QTest::qWait(60);
    }
    // Every visible widget's place on the window, its font, and the table's inner sizes.
    std::map<std::string, std::string> Sizes() const {
        std::map<std::string, std::string> Result;
        int Number = 0;
        for (const QWidget* Each : Window->findChildren<QWidget*>()) {
            if (!Each->isVisible() || Each->isWindow()) continue;
            const QRect At(Each->mapTo(Window.get(), QPoint()), Each->size());
            Result[std::to_string(Number++) + ' ' + Each->metaObject()->className()] =
                std::to_string(At.x()) + ',' + std::to_string(At.y()) + ' ' + std::to_string(At.width()) + 'x' +
                std::to_string(At.height()) + ' ' + std::to_string(Each->font().pointSizeF());
        }
        for (int i = 0; i < Grid().model()->columnCount(); ++i)
            Result["column " + std::to_string(i)] = std::to_string(Grid().columnWidth(i));
        Result["row"] = std::to_string(Grid().rowHeight(0));
        return Result;
    }
};

TEST_F(ScaleTest, EverythingOpenFollowsAndComesBackExactly) {
    PlayFirstStart();
    QTest::qWait(20);
    const auto Before = Sizes();
    const int Row = Grid().rowHeight(0);
    const int Header = Grid().horizontalHeader()->height();
    for (const int Scale : {115, 125, 135, 150}) {
        SCOPED_TRACE(Scale);
        SetScale(Scale);
        EXPECT_EQ(Context.GetScale(), Scale);
        EXPECT_NEAR(Grid().rowHeight(0), Row * Scale / 100.0, 2.0);
        EXPECT_NEAR(Grid().horizontalHeader()->height(), Header * Scale / 100.0, 4.0);
        EXPECT_NEAR(QApplication::font().pointSizeF(), ws::kFontPoints * Scale / 100, 0.01);
        EXPECT_NEAR(Context.Scaled(200), Context.Scaled(100) * 2, 1);
        SetScale(100);
        const auto After = Sizes();
        ASSERT_EQ(After.size(), Before.size());
        for (const auto& [Name, Place] : Before) EXPECT_EQ(After.at(Name), Place) << Name;
    }
}

// Coming back may move the docks, which ends an edit as a click elsewhere does: nothing that was typed is lost.
TEST_F(ScaleTest, AnOpenEditorGrowsWithItsCellAndItsTextStays) {
    PlayFirstStart();
    const QString Before = Grid().model()->index(0, 0).data().toString();
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().CellRect(0, 0).center());
    QTest::keyClick(&Grid(), Qt::Key_F2);
    ASSERT_TRUE(Grid().GetEditorWidget());
    SetScale(150);
    ASSERT_TRUE(Grid().GetEditorWidget());
    EXPECT_EQ(Grid().GetEditorWidget()->Widget()->geometry(), Grid().CellRect(0, 0).adjusted(0, 0, -1, -1));
    SetScale(100);
    EXPECT_EQ(Grid().model()->index(0, 0).data().toString(), Before);
}

TEST_F(ScaleTest, TheDialogFitsTheScreenAtEveryScaleAndLanguage) {
    for (const int Language : {0, 1, 2}) {
        for (const int Scale : {100, 150}) {
            SCOPED_TRACE(std::to_string(Language) + " " + std::to_string(Scale));
            Window->SetLanguage(Language);
            SetScale(Scale);
            auto& Shown = Dialog();
            QTest::qWait(5);
            const QSize Room = Shown.screen()->availableSize();
            EXPECT_LE(Shown.width(), Room.width());
            EXPECT_LE(Shown.height(), Room.height());
            for (int Page = 0; Page < Shown.Pages().count(); ++Page) {
                Shown.Pages().setCurrentRow(Page);
                QTest::qWait(1);
                for (auto* Button : Shown.findChildren<QPushButton*>())
                    EXPECT_TRUE(!Button->isVisible() || Button->width() >= Button->minimumSizeHint().width());
            }
        }
    }
    Window->SetLanguage(0);
}

}  // namespace
}  // namespace gui
