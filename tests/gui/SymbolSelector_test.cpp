// SPDX-License-Identifier: GPL-3.0-or-later
// The symbol selector as a trader uses it: the real window, the real package, the sample market in memory.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include "framework/base/Clock.h"
#include "framework/controls/ComboBox.h"
#include "tests/gui/FakeDialogs.h"
#include "workstation/renderers/CellEditors.h"
#include "workstation/renderers/GridRenderer.h"
#include "workstation/script/Player.h"
#include "workstation/selector/SymbolSelector.h"
#include "workstation/shell/MainWindow.h"
#include "workstation/shell/PackageLoader.h"

namespace gui {

namespace fs = std::filesystem;

class SymbolSelectorTest : public testing::Test {
protected:
    SymbolSelectorTest() {
        fw::TClock::Fix(std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + std::chrono::hours(4));
        ws::TWorkstationOptions Options;
        Options.StoreFile = fs::temp_directory_path() / ("selector-" + std::to_string(::getpid()) + ".db");
        Options.InMemory = true;
        Options.SampleFolder = TEST_SAMPLE_FOLDER;
        Workstation = std::make_unique<ws::TWorkstation>(Options);
        Context.SetSkin("Light");
        Window = std::make_unique<ws::TMainWindow>(*Workstation, Context, std::make_unique<TFakeDialogs>(Context));
        EXPECT_TRUE(ws::LoadPackage(TEST_PACKAGE));
        Window->ReloadViews();
        Window->show();
        Window->OpenStartView();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !Window->IsPlaying(); }, 12000));
    }
    ~SymbolSelectorTest() override {
        Window.reset();
        EXPECT_FALSE(Workstation->HasOwners());
        Workstation.reset();
        fw::TClock::Fix({});
    }

    fw::TFrame& Frame() const { return *Window->Docks().Current()->Frame(); }
    fw::TGridTableView& Legs() const { return *Frame().FindControl<fw::TGridTableView>("PositionGridView"); }
    fw::Text Cell(int Row, int Column) const { return Legs().GetDataController().GetValue(Row, Column).AsText(); }
    ws::TGridRenderer& Grid() const {
        for (auto* Each : Window->Docks().Current()->findChildren<QTableView*>())
            if (auto* Found = dynamic_cast<ws::TGridRenderer*>(Each)) return *Found;
        throw std::runtime_error("no grid");
    }
    // The legs are cleared and the market is chosen, as a trader does it.
    void Choose(const char* Exchange, const char* Series, const char* Month) {
        ws::TPlayer Player(Frame());
        EXPECT_TRUE(Player.Play(ws::TStep::Click("btnClear")));
        for (const auto& [Control, Value] :
             {std::pair{"cmbExchange", Exchange}, {"cmbSeries", Series}, {"cmbMonth", Month}})
            EXPECT_TRUE(Player.Play(ws::TStep::Select(Control, Value))) << Value;
    }
    QWidget* OpenCell() const {
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().CellRect(0, 0).center());
        if (!Grid().GetEditorWidget()) throw std::runtime_error("the cell does not open");
        return Grid().GetEditorWidget()->FocusWidget();
    }
    ws::TSymbolSelector& Selector() const {
        QWidget* Popup = QApplication::activePopupWidget();
        for (QWidget* Each : Popup ? Popup->findChildren<QWidget*>() : QList<QWidget*>())
            if (auto* Found = dynamic_cast<ws::TSymbolSelector*>(Each)) return *Found;
        throw std::runtime_error("no selector is open");
    }
    ws::TSymbolSelector& OpenSelector() const {
        QTest::keyClick(OpenCell(), Qt::Key_F4);
        Workstation->Pump();
        return Selector();
    }
    static bool IsOpen() { return QApplication::activePopupWidget() != nullptr; }
    void Press(Qt::Key Key) const { QTest::keyClick(&Selector().Search(), Key); }
    void Type(const char* Text) const { QTest::keyClicks(&Selector().Search(), QString::fromUtf8(Text)); }
    static fw::Text Under(ws::TSymbolSelector& S) {
        return S.Model().Current() ? S.Model().SymbolAt(*S.Model().Current()) : fw::Text();
    }
    // Pictures to look at, where the environment names a folder for them.
    static void Picture(ws::TSymbolSelector& S, const char* Name) {
        if (const char* Folder = std::getenv("VENTIQ_PICTURES"))
            S.window()->grab().save(QString::fromUtf8(Folder) + QLatin1Char('/') + QString::fromUtf8(Name));
    }

    std::unique_ptr<ws::TWorkstation> Workstation;
    ws::TRenderContext Context;
    std::unique_ptr<ws::TMainWindow> Window;
};

TEST_F(SymbolSelectorTest, OpensAtTheMoneyByKeyAndByButton) {
    Choose("HKFE", "HSI", "2026-12");
    QWidget* Line = OpenCell();
    QTest::keyClick(Line, Qt::Key_F4);
    Workstation->Pump();
    auto& S = Selector();
    EXPECT_EQ(S.window()->size(), QSize(400, 400));
    const auto Current = S.Model().Current();
    ASSERT_TRUE(Current);
    EXPECT_TRUE(S.Model().IsAtTheMoney(S.Model().Strike(Current->Row)));
    EXPECT_NEAR(S.Model().Strike(Current->Row).Value, 26480, 100);
    EXPECT_FALSE(S.View().CellRect(*Current).isEmpty());
    EXPECT_EQ(S.Model().Future(-1).Symbol, "HSIZ6");
    EXPECT_EQ(S.Footer(), ws::ToQt("HSI26400L6 · Call 26,400 · 2026/12/30"));
    Picture(S, "hsi-light.png");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    QTest::keyClick(Grid().GetEditorWidget()->FocusWidget(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(IsOpen());
    Press(Qt::Key_Escape);
    QTest::keyClick(Grid().GetEditorWidget()->FocusWidget(), Qt::Key_Escape);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().CellButtons(0, 0).at(0).Rect.center());
    EXPECT_TRUE(IsOpen());
    Press(Qt::Key_Escape);
}

TEST_F(SymbolSelectorTest, TypingFiltersAndEnterFillsTheRow) {
    Choose("HKFE", "HSI", "2026-12");
    auto& S = OpenSelector();
    Type("25600p");
    EXPECT_EQ(Under(S), "HSI25600X6");
    EXPECT_EQ(S.Model().StrikeCount(), 1);
    Press(Qt::Key_Return);
    EXPECT_FALSE(IsOpen());
    Legs().PostEditor();
    EXPECT_EQ(Cell(0, 0), "HSI25600X6");
    EXPECT_EQ(Cell(0, 1), "Buy");
    EXPECT_EQ(Legs().GetDataController().GetRecordCount(), 2);
    const int Premium = 5;
    EXPECT_NE(Cell(0, Premium), "");
}

TEST_F(SymbolSelectorTest, TheArrowsMoveOverRowsAndSides) {
    Choose("HKFE", "HSI", "2026-12");
    auto& S = OpenSelector();
    ASSERT_EQ(Under(S), "HSI26400L6");
    Press(Qt::Key_Down);
    EXPECT_EQ(Under(S), "HSI26600L6");
    Press(Qt::Key_Right);
    EXPECT_EQ(Under(S), "HSI26600X6");
    Press(Qt::Key_Up);
    Press(Qt::Key_Left);
    EXPECT_EQ(Under(S), "HSI26400L6");
    for (int i = 0; i < 60; ++i) Press(Qt::Key_Up);
    EXPECT_EQ(Under(S), "HSIZ6");
    for (int i = 0; i < 10; ++i) Press(Qt::Key_PageDown);
    EXPECT_EQ(Under(S), "HSI31000L6");
    EXPECT_FALSE(S.View().CellRect(*S.Model().Current()).isEmpty());
    Press(Qt::Key_Escape);
}

TEST_F(SymbolSelectorTest, ASingleClickOnlySelectsAndADoubleClickTakes) {
    Choose("HKFE", "HSI", "2026-12");
    auto& S = OpenSelector();
    const QPoint Put = S.View().CellRect({S.Model().Current()->Row + 1, ws::ECallPut::Put}).center();
    QTest::mouseClick(S.View().viewport(), Qt::LeftButton, {}, Put);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Under(S), "HSI26600X6");
    QTest::mouseDClick(S.View().viewport(), Qt::LeftButton, {}, Put);
    EXPECT_FALSE(IsOpen());
    Legs().PostEditor();
    EXPECT_EQ(Cell(0, 0), "HSI26600X6");
}

TEST_F(SymbolSelectorTest, EscapeLeavesTheCellAsItWas) {
    Choose("HKFE", "HSI", "2026-12");
    QWidget* Line = OpenCell();
    QTest::keyClicks(Line, "HSIZ6");
    QTest::keyClick(Line, Qt::Key_F4);
    Type("25600");
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Legs().GetEditor()->GetText(), "HSIZ6");
    EXPECT_EQ(Cell(0, 0), "");
}

TEST_F(SymbolSelectorTest, EnterWithoutAFittingContractDoesNothing) {
    Choose("HKFE", "HSI", "2026-12");
    auto& S = OpenSelector();
    Type("nosuch");
    EXPECT_EQ(S.Model().State(), ws::EChainState::NoMatch);
    Picture(S, "no-match.png");
    Press(Qt::Key_Return);
    EXPECT_TRUE(IsOpen());
    for (int i = 0; i < 6; ++i) Press(Qt::Key_Backspace);
    EXPECT_EQ(Under(S), "HSI26400L6");
    Press(Qt::Key_Escape);
}

TEST_F(SymbolSelectorTest, ShowsTheMarketThatIsChosenWhenItOpens) {
    Choose("HKFE", "HSI", "2026-12");
    EXPECT_EQ(Under(OpenSelector()), "HSI26400L6");
    Press(Qt::Key_Escape);
    Choose("XDER", "CPR", "2026-12");
    auto& Copper = OpenSelector();
    EXPECT_EQ(Under(Copper), "CPR2612C4.10");
    EXPECT_EQ(Copper.Footer().split(QChar(0xB7)).at(1).trimmed(), "Call 410.00");
    Picture(Copper, "copper.png");
    Press(Qt::Key_Escape);
    Choose("HKFE", "HTI", "2027-03");
    auto& OnlyFuture = OpenSelector();
    EXPECT_EQ(Under(OnlyFuture), "HTIH7");
    Picture(OnlyFuture, "future-only.png");
    Press(Qt::Key_Return);
    Legs().PostEditor();
    EXPECT_EQ(Cell(0, 0), "HTIH7");
}

TEST_F(SymbolSelectorTest, PricesOfAnyLengthStandWhole) {
    for (const auto& [Exchange, Series, Month] : {std::tuple{"XDER", "TBF", "2026-12"},
                                                  {"XDER", "EUR", "2026-12"},
                                                  {"SEHK", "HKB", "2026-12"},
                                                  {"XDER", "WHT", "2026-12"},
                                                  {"HKFE", "HSI", "2026-12-W2"},
                                                  {"HKFE", "MCH", "2027-02"}}) {
        SCOPED_TRACE(Series);
        Choose(Exchange, Series, Month);
        auto& S = OpenSelector();
        Picture(S, (std::string(Series) + Month + ".png").c_str());
        const auto Current = S.Model().Current();
        ASSERT_TRUE(Current);
        const ws::TChainQuote Quote = S.Model().QuoteOf(*Current);
        ASSERT_TRUE(Quote.Ask);
        const QString Ask = ws::ToQt(fw::TCustomFormatter::GetInstance().FormatValue(*Quote.Ask, fw::kFormatPrice,
                                                                                     S.Model().SymbolAt(*Current)));
        EXPECT_LT(S.View().fontMetrics().horizontalAdvance(Ask), S.View().CellRect(*Current).width() / 2);
        Press(Qt::Key_Escape);
    }
}

TEST_F(SymbolSelectorTest, AsksForTheRowsThatAreSeenOnly) {
    Choose("HKFE", "HSI", "2026-12");
    auto& S = OpenSelector();
    const size_t Seen = static_cast<size_t>(S.View().VisibleRows());
    EXPECT_LT(Seen, 20u);
    EXPECT_EQ(S.Model().Quotes().WatchedCount(), 2 * Seen + 1);
    Press(Qt::Key_PageDown);
    Press(Qt::Key_PageDown);
    EXPECT_LE(S.Model().Quotes().WatchedCount(), 2 * Seen + 3);
    Press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Workstation->Subscriptions().HasOwners(); }, 2000));
}

TEST_F(SymbolSelectorTest, AContractThatIsSilentShowsDashes) {
    Choose("HKFE", "HHI", "2026-12");
    auto& S = OpenSelector();
    Type("10500c");
    ASSERT_EQ(Under(S), "HHI10500L6");
    QTest::qWait(20);
    EXPECT_FALSE(S.Model().QuoteOf(*S.Model().Current()).Ask);
    EXPECT_TRUE(S.Model().QuoteOf({S.Model().Current()->Row, ws::ECallPut::Put}).Ask);
    Picture(S, "silent.png");
    Press(Qt::Key_Return);
    EXPECT_EQ(Cell(0, 0), "HHI10500L6");
}

TEST_F(SymbolSelectorTest, TheSkinSwitchesWhileItIsOpen) {
    Choose("HKFE", "HSI", "2026-12");
    auto& S = OpenSelector();
    const QImage Light = S.View().grab().toImage();
    Window->SetSkin("Dark");
    QTest::qWait(1);
    ASSERT_TRUE(IsOpen());
    Picture(S, "hsi-dark.png");
    EXPECT_NE(S.View().grab().toImage(), Light);
    Window->SetSkin("Light");
    EXPECT_EQ(Under(S), "HSI26400L6");
    Press(Qt::Key_Return);
    Legs().PostEditor();
    EXPECT_EQ(Cell(0, 0), "HSI26400L6");
}

// The view posts its open editor when the language changes, and the selector goes with it.
TEST_F(SymbolSelectorTest, ALanguageSwitchEndsTheEditingAndTheNextOneSpeaksTheNewLanguage) {
    Choose("HKFE", "HSI", "2026-12");
    OpenSelector();
    Window->SetLanguage(1);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Cell(0, 0), "");
    auto& S = OpenSelector();
    EXPECT_TRUE(S.Footer().contains(ws::ToQt("認購"))) << ws::FromQt(S.Footer());
    Picture(S, "hant-light.png");
    Window->SetSkin("Dark");
    QTest::qWait(1);
    Picture(S, "hant-dark.png");
    Press(Qt::Key_Escape);
}

// A view that keeps its editor open over a change of the language: the selector follows.
TEST_F(SymbolSelectorTest, AnOpenSelectorIsTranslated) {
    fw::TObject Owner;
    fw::TPopupRequestRecord Request;
    Request.Owner = &Owner;
    Request.OnGetMarket = [] { return fw::TSelectedMarket{"HKFE", "HSI", "2026-12"}; };
    fw::TCustomGlobalChannelManager::GetInstance().SendData(fw::kChannelSymbolPopup, &Request);
    ASSERT_NE(Request.Control, nullptr);
    const std::unique_ptr<QWidget> Content(Context.MakePopupContent(*Request.Control, nullptr));
    auto& S = dynamic_cast<ws::TSymbolSelector&>(*Content);
    S.resize(400, 400);
    const QImage English = S.View().grab().toImage();
    const QString Placeholder = S.Search().placeholderText();
    Window->SetLanguage(2);
    EXPECT_NE(S.Search().placeholderText(), Placeholder);
    EXPECT_TRUE(S.Footer().contains(ws::ToQt("认购"))) << ws::FromQt(S.Footer());
    EXPECT_NE(S.View().grab().toImage(), English);
    Picture(S, "hans-light.png");
}

TEST_F(SymbolSelectorTest, WithoutAChosenMarketItSaysWhatToDo) {
    fw::TPopupRequestRecord Request;
    fw::TCustomGlobalChannelManager::GetInstance().SendData(fw::kChannelSymbolPopup, &Request);
    const std::unique_ptr<QWidget> Content(Context.MakePopupContent(*Request.Control, nullptr));
    auto& S = dynamic_cast<ws::TSymbolSelector&>(*Content);
    S.resize(400, 400);
    EXPECT_EQ(S.Model().State(), ws::EChainState::NoMarket);
    QTest::keyClick(&S.Search(), Qt::Key_Return);
    QTest::keyClick(&S.Search(), Qt::Key_Down);
    QTest::keyClick(&S.Search(), Qt::Key_Right);
    Picture(S, "no-market.png");
    EXPECT_EQ(S.Footer(), "");
}

TEST_F(SymbolSelectorTest, AWindowThatClosesUnderTheOpenSelectorLeavesNothing) {
    Choose("HKFE", "HSI", "2026-12");
    OpenSelector();
    Window->Docks().CloseAll();
    EXPECT_FALSE(IsOpen());
}

TEST_F(SymbolSelectorTest, AFilterOfTenThousandLettersIsCutAndFindsNothing) {
    Choose("HKFE", "HSI", "2026-12");
    auto& S = OpenSelector();
    S.Search().setText(QString(10000, QLatin1Char('x')));
    EXPECT_LT(S.Search().text().size(), 100);
    EXPECT_EQ(S.Model().State(), ws::EChainState::NoMatch);
    Press(Qt::Key_Escape);
}

}  // namespace gui
