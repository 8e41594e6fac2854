// SPDX-License-Identifier: GPL-3.0-or-later
// The whole window as a screen reader walks it, in every language.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTimer>

#include <set>

#include "framework/controls/Chart.h"
#include "framework/data/ColumnIds.h"
#include "tests/gui/AccessibleTest.h"
#include "tests/gui/MainWindowTest.h"
#include "workstation/renderers/ChartRenderer.h"
#include "workstation/selector/SymbolSelector.h"
#include "workstation/shell/BatchDialog.h"
#include "workstation/views/TradingViews.h"

namespace gui {

namespace {

bool IsChinese(const QString& Text) {
    return std::any_of(Text.begin(), Text.end(), [](QChar C) { return C.script() == QChar::Script_Han; });
}

// Latin words that no symbol or number is.
bool HasWords(const QString& Text) {
    static const QRegularExpression Words(QStringLiteral("[a-z]{3,} [a-z]{2,}"));
    return Words.match(Text).hasMatch();
}

// What the user can come to or press. A composite's parts are looked at, too; the toolkit keeps the corner of a table
// to itself.
bool IsControl(const QWidget& Widget) {
    if (Widget.inherits("QTableCornerButton")) return false;
    return Widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(&Widget) ||
           qobject_cast<const QComboBox*>(&Widget) || qobject_cast<const QLineEdit*>(&Widget);
}

std::string Told(const QWidget& Widget) {
    std::string Path;
    for (const QWidget* Each = &Widget; Each; Each = Each->parentWidget())
        Path += std::string(Each->metaObject()->className()) + "(" + Each->objectName().toStdString() + ") < ";
    return Path;
}

}  // namespace

class AccessibilityTest : public MainWindowTest {
protected:
    AccessibilityTest() { EXPECT_TRUE(QTest::qWaitForWindowActive(Window.get())); }

    // A view's own buttons keep the words of the last click.
    bool IsOfAView(QWidget& Widget) const {
        const auto& Docks = Window->Docks().Docks();
        return std::any_of(Docks.begin(), Docks.end(), [&](ws::TViewDock* Dock) {
            const auto& Own = Dock->TitleBar().Buttons();
            return std::find(Own.begin(), Own.end(), &Widget) != Own.end();
        });
    }
    // Every control below a window that can be seen has a name, in the language of the window.
    void ExpectNames(const QWidget& Root, int Language) const {
        int Seen = 0;
        for (QWidget* Each : Root.findChildren<QWidget*>()) {
            if (!Each->isVisible() || !IsControl(*Each)) continue;
            ++Seen;
            const QString Name = TScreenReader::CaptionOf(*Each);
            SCOPED_TRACE(Told(*Each) + " \"" + Name.toStdString() + "\"");
            EXPECT_FALSE(Name.isEmpty());
            // The toolkit's own buttons come with words of one language.
            const QString Note = TScreenReader::Of(*Each).text(QAccessible::Description);
            const bool IsForeign = Language != 0 && qobject_cast<QAbstractButton*>(Each) && HasWords(Note);
            EXPECT_TRUE(IsOfAView(*Each) || !IsForeign) << Note.toStdString();
            EXPECT_TRUE(IsOfAView(*Each) || IsChinese(Name) == (Language != 0));
        }
        EXPECT_GT(Seen, 1);
    }
    // From the window down: everything that takes the focus has a name, and the walk ends.
    void Walk(QAccessibleInterface& From, int Depth = 0) {
        ASSERT_LT(Depth, 40);
        ASSERT_LT(++FWalked, 20000);
        Roles.insert(From.role());
        const auto State = From.state();
        const bool IsItem = From.tableCellInterface() || From.role() == QAccessible::ListItem;
        const bool HasName = !From.text(QAccessible::Name).isEmpty() || !From.text(QAccessible::Description).isEmpty();
        EXPECT_TRUE(HasName || IsItem || State.invisible || !State.focusable)
            << (From.object() ? From.object()->metaObject()->className() : "no object");
        for (int i = 0; i < From.childCount(); ++i)
            if (QAccessibleInterface* Child = From.child(i)) Walk(*Child, Depth + 1);
    }
    // The same in each language, English last.
    void InEveryLanguage(const std::function<QWidget*()>& Root) {
        for (const int Language : {1, 2, 0}) {
            SCOPED_TRACE("language " + std::to_string(Language));
            Window->SetLanguage(Language);
            QTest::qWait(5);
            ExpectNames(*Root(), Language);
            FWalked = 0;
            Walk(TScreenReader::Of(*Root()));
        }
    }
    void OpenTradingViews() {
        for (const auto& Each : Window->Catalog().Views())
            if (dynamic_cast<ws::TTradingView*>(Each.get())) Window->Docks().Open(*Each);
    }

    TScreenReader Screen;
    std::set<QAccessible::Role> Roles;

private:
    int FWalked = 0;
};

TEST_F(AccessibilityTest, EveryControlOfTheWindowAndItsViewsHasANameInEveryLanguage) {
    PlayFirstStart();
    fw::TLog::Warning("Res_LogNumberRefused", {"abc"});  // the status line shows a problem
    ws::TViewDock* Payoff = Window->Docks().Current();
    InEveryLanguage([this] { return Window.get(); });
    OpenTradingViews();
    ASSERT_EQ(Window->Docks().Docks().size(), 3u);
    for (ws::TViewDock* Dock : Window->Docks().Docks()) {
        if (Dock == Payoff) continue;
        Dock->raise();
        QTest::qWait(5);
        InEveryLanguage([this] { return Window.get(); });
    }
    for (const auto Role : {QAccessible::Table, QAccessible::ComboBox, QAccessible::Button, QAccessible::EditableText,
                            QAccessible::ColumnHeader, QAccessible::Cell, QAccessible::MenuItem})
        EXPECT_TRUE(Roles.contains(Role)) << Role;
}

TEST_F(AccessibilityTest, TheConfirmationHasNamesAndItsCellsReadWhatIsShown) {
    PlayFirstStart();
    bool Opened = false;
    QTimer::singleShot(0, Window.get(), [&] {
        auto* Dialog = dynamic_cast<ws::TBatchDialog*>(QApplication::activeModalWidget());
        if (!Dialog) return;
        Opened = QTest::qWaitFor([&] { return Dialog->isActiveWindow(); }, 5000);
        InEveryLanguage([&] { return Dialog; });
        auto& Cells = TScreenReader::TableOf(Dialog->View());
        EXPECT_EQ(Cells.rowCount(), 4);
        QAccessibleInterface* Tick = Cells.cellAt(0, 0);
        EXPECT_TRUE(Tick->state().checkable);
        EXPECT_TRUE(Tick->state().checked);
        EXPECT_EQ(Tick->text(QAccessible::Name), "Send");
        const int Symbol = Dialog->Model().ColumnOf(fw::kColumnSymbol);
        EXPECT_EQ(Cells.cellAt(3, Symbol)->text(QAccessible::Name), "HSI28000L6");
        EXPECT_EQ(Cells.columnDescription(Symbol), "Symbol");
        Dialog->reject();
    });
    Click("Submit");
    EXPECT_TRUE(Opened);
}

TEST_F(AccessibilityTest, TheSymbolSelectorReadsContractsAndTellsWhereItsCursorIs) {
    PlayFirstStart();
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().CellRect(4, 0).center());
    ASSERT_NE(Grid().GetEditorWidget(), nullptr);
    EXPECT_EQ(TScreenReader::NameOf(*Grid().GetEditorWidget()->FocusWidget()), "Symbol");
    QTest::keyClick(Grid().GetEditorWidget()->FocusWidget(), Qt::Key_F4);
    Workstation->Pump();
    ws::TSymbolSelector* Selector = nullptr;
    QWidget* Popup = QApplication::activePopupWidget();
    for (QWidget* Each : Popup ? Popup->findChildren<QWidget*>() : QList<QWidget*>())
        if (auto* Found = dynamic_cast<ws::TSymbolSelector*>(Each)) Selector = Found;
    ASSERT_NE(Selector, nullptr);
    ws::TChainView& View = Selector->View();
    auto& Chain = TScreenReader::TableOf(View);
    const int Futures = Selector->Model().FutureCount();
    EXPECT_GT(Futures, 0);
    EXPECT_EQ(Chain.rowCount(), Futures + Selector->Model().StrikeCount());
    EXPECT_EQ(Chain.columnCount(), 3);
    EXPECT_EQ(Chain.columnDescription(2), "Put");
    EXPECT_EQ(TScreenReader::NameOf(View), "Option chain");
    const auto Read = [&](int Row, int Column) {
        return Chain.cellAt(Row, Column)->text(QAccessible::Name).toStdString();
    };
    const auto SymbolOf = [&](ws::TChainCell Cell) { return Selector->Model().SymbolAt(Cell); };
    EXPECT_TRUE(Read(0, 0).starts_with(SymbolOf({-Futures, ws::ECallPut::Call}))) << Read(0, 0);
    EXPECT_TRUE(Read(Futures, 0).starts_with(SymbolOf({0, ws::ECallPut::Call}))) << Read(Futures, 0);
    EXPECT_TRUE(Read(Futures, 2).starts_with(SymbolOf({0, ws::ECallPut::Put}))) << Read(Futures, 2);
    const int Money = Selector->Model().MoneyRow().value_or(-1);
    ASSERT_GE(Money, 0);
    EXPECT_TRUE(QString::fromStdString(Read(Futures + Money, 1)).contains("at the money"));
    EXPECT_TRUE(QString::fromStdString(Read(Futures + Money, 0)).contains("bid"));
    Screen.Heard.clear();
    QTest::keyClick(&Selector->Search(), Qt::Key_Down);
    const auto Current = Selector->Model().Current();
    ASSERT_TRUE(Current);
    EXPECT_TRUE(Screen.HasHeard(
        QAccessible::Focus,
        QString::fromStdString(Read(Futures + Current->Row, Current->Side == ws::ECallPut::Put ? 2 : 0))));
    ExpectNames(*Popup, 0);
    Window->SetLanguage(1);  // an open editor is posted, and the popup goes with it
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    Window->SetLanguage(0);
}

TEST_F(AccessibilityTest, TheChartReadsItsResultInTheUsersLanguageAfterACalculation) {
    PlayFirstStart();
    ws::TChartRenderer* Chart = nullptr;
    for (QWidget* Each : Window->findChildren<QWidget*>())
        if (auto* Found = dynamic_cast<ws::TChartRenderer*>(Each)) Chart = Found;
    ASSERT_NE(Chart, nullptr);
    const auto Description = [&] { return TScreenReader::Of(*Chart).text(QAccessible::Description); };
    QTest::qWait(5);
    EXPECT_TRUE(TScreenReader::NameOf(*Chart).startsWith("Chart: P/L"));
    const QString Calculated = Description();
    for (const char* Part : {"Prices from ", "Maximum profit ", "Maximum loss ", "Break-even at "})
        EXPECT_TRUE(Calculated.contains(Part)) << ws::FromQt(Calculated);
    for (const int Language : {1, 2}) {
        Window->SetLanguage(Language);
        QTest::qWait(5);
        EXPECT_TRUE(IsChinese(TScreenReader::NameOf(*Chart)));
        EXPECT_TRUE(IsChinese(Description()));
    }
    Window->SetLanguage(0);
    QTest::qWait(5);
    EXPECT_EQ(Description(), Calculated);
    TypeCell(0, 5, "1");
    Click("Calculate");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Description() != Calculated; }, 2000));
}

}  // namespace gui
