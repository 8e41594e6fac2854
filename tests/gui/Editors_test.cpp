// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractItemView>
#include <QLabel>
#include <QMenu>

#include "tests/gui/GuiTest.h"
#include "tests/support/NumberFormatGuard.h"
#include "workstation/renderers/ButtonRenderer.h"
#include "workstation/renderers/ComboRenderer.h"
#include "workstation/renderers/PopupEditRenderer.h"
#include "workstation/renderers/SpinEditRenderer.h"

namespace gui {

using namespace testing;
using TTexts = std::vector<fw::Text>;

class EditorsTest : public GuiTest {
protected:
    EditorsTest() {
        for (const char* Item : {"HKFE", "CBOE", "throw"}) Frame.Combo.AddItem(Item);
        Frame.Seen.clear();
    }
    ws::TSpinEditRenderer& Spin(fw::TSpinEdit& Model) const {
        for (auto* Each : Window->findChildren<QWidget*>())
            if (auto* Found = dynamic_cast<ws::TSpinEditRenderer*>(Each))
                if (Found->accessibleName() == ws::ToQt(&Model == &Frame.Down ? "Res_DownPrice" : "Res_UpPrice"))
                    return *Found;
        throw std::runtime_error("no spin editor");
    }
    ws::TButtonRenderer& Button(const char* Caption) const {
        for (auto* Each : Window->findChildren<QPushButton*>())
            if (Each->text() == QLatin1String(Caption)) return *static_cast<ws::TButtonRenderer*>(Each);
        throw std::runtime_error("no button");
    }
};

TEST_F(EditorsTest, AComboChoosesInTheModelAndShowsWhatAProgramChooses) {
    auto& Combo = *Find<ws::TComboRenderer>();
    ASSERT_EQ(Combo.count(), 3);
    EXPECT_EQ(Combo.currentIndex(), -1);
    QTest::keyClick(&Combo, Qt::Key_Down);
    EXPECT_EQ(Frame.Combo.GetItemIndex(), 0);
    EXPECT_EQ(Frame.Seen, TTexts{"combo HKFE"});
    Frame.Combo.SetItemIndex(1);
    EXPECT_EQ(Combo.currentIndex(), 1);
    Frame.Combo.SetItem(1, "CBOE(Options)");
    EXPECT_EQ(Combo.currentText(), "CBOE(Options)");
    Frame.Combo.ClearItems();
    EXPECT_EQ(Combo.count(), 0);
}

TEST_F(EditorsTest, TheButtonsAndKeysOfASpinEditorMoveTheValueByItsIncrement) {
    Frame.Down.SetValue(10.0);
    Frame.Down.SetIncrement(2.5);
    auto& Editor = Spin(Frame.Down);
    EXPECT_LT(Editor.DownButton()->x(), Editor.Line().x());
    EXPECT_GT(Editor.UpButton()->x(), Editor.Line().x());
    QTest::mouseClick(Editor.UpButton(), Qt::LeftButton);
    EXPECT_EQ(Frame.Down.GetFloat(), 12.5);
    QTest::mouseClick(Editor.DownButton(), Qt::LeftButton);
    QTest::mouseClick(Editor.DownButton(), Qt::LeftButton);
    EXPECT_EQ(Frame.Down.GetFloat(), 7.5);
    QTest::keyClick(&Editor.Line(), Qt::Key_Up);
    EXPECT_EQ(Frame.Down.GetFloat(), 10.0);
    EXPECT_EQ(Editor.Line().text(), "10");
}

TEST_F(EditorsTest, TheWheelSpinsAFocusedEditorOnly) {
    Frame.Down.SetValue(10.0);
    auto& Editor = Spin(Frame.Down);
    Frame.Go.SetFocus();
    const auto Turn = [&Editor] {
        QWheelEvent Wheel(QPointF(5, 5), Editor.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Editor, &Wheel);
    };
    Turn();
    EXPECT_EQ(Frame.Down.GetFloat(), 10.0);
    Editor.Line().setFocus();
    Turn();
    EXPECT_EQ(Frame.Down.GetFloat(), 11.0);
}

TEST_F(EditorsTest, EnterPostsATypedNumberAndReachesTheForm) {
    auto& Editor = Spin(Frame.Up);
    Editor.Line().setFocus();
    QTest::keyClicks(&Editor.Line(), "1234.5");
    EXPECT_TRUE(Frame.Up.GetValue().IsNull());
    QTest::keyClick(&Editor.Line(), Qt::Key_Return);
    EXPECT_EQ(Frame.Up.GetFloat(), 1234.5);
    EXPECT_EQ(Frame.Seen, TTexts{"enter 1234.5"});
}

TEST_F(EditorsTest, LeavingASpinEditorPostsAndTellsTheForm) {
    auto& Editor = Spin(Frame.Down);
    Editor.Line().setFocus();
    QTest::keyClicks(&Editor.Line(), "95");
    QTest::keyClick(&Editor.Line(), Qt::Key_Tab);
    EXPECT_EQ(Frame.Down.GetFloat(), 95.0);
    EXPECT_EQ(Frame.Seen, TTexts{"down 95"});
    EXPECT_TRUE(Frame.Up.HasFocus());
}

TEST_F(EditorsTest, LeavingTheWholeFormPostsToo) {
    QWidget Elsewhere;
    QLineEdit Other(&Elsewhere);
    Elsewhere.show();
    auto& Editor = Spin(Frame.Down);
    Window->activateWindow();
    Editor.Line().setFocus();
    QTest::keyClicks(&Editor.Line(), "42");
    Elsewhere.activateWindow();
    Other.setFocus(Qt::OtherFocusReason);
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == &Other; }));
    // A change of the active window alone is no leaving; the value is posted by whatever the user does next in the
    // form.
    Window->activateWindow();
    QTest::mouseClick(&Button("Res_Calculate"), Qt::LeftButton);
    EXPECT_EQ(Frame.Down.GetFloat(), 42.0);
}

TEST_F(EditorsTest, ARefusedNumberLeavesTheFormerValueOnTheScreenAndOneWarning) {
    Frame.Down.SetValue(7.0);
    Host.TakeLog();
    struct TCase {
        const char* Typed;
    };
    for (const TCase& Case : {TCase{"abc"}, TCase{"nan"}, TCase{"1e999"}, TCase{"inf"}}) {
        SCOPED_TRACE(Case.Typed);
        auto& Editor = Spin(Frame.Down);
        Editor.Line().setFocus();
        Editor.Line().selectAll();
        QTest::keyClicks(&Editor.Line(), Case.Typed);
        QTest::keyClick(&Editor.Line(), Qt::Key_Return);
        EXPECT_EQ(Frame.Down.GetFloat(), 7.0);
        EXPECT_EQ(Editor.Line().text(), "7");
        EXPECT_EQ(Host.TakeLog(), TTexts{"Res_LogNumberRefused(" + fw::Text(Case.Typed) + ")"});
    }
}

TEST_F(EditorsTest, EscapeTakesTypingBackAndAnEmptiedEditorStaysEmpty) {
    Frame.Down.SetValue(7.0);
    auto& Editor = Spin(Frame.Down);
    Editor.Line().setFocus();
    Editor.Line().selectAll();
    QTest::keyClicks(&Editor.Line(), "88");
    QTest::keyClick(&Editor.Line(), Qt::Key_Escape);
    EXPECT_EQ(Editor.Line().text(), "7");
    Editor.Line().selectAll();
    QTest::keyClick(&Editor.Line(), Qt::Key_Delete);
    QTest::keyClick(&Editor.Line(), Qt::Key_Return);
    EXPECT_TRUE(Frame.Down.GetValue().IsNull());
    EXPECT_EQ(Editor.Line().text(), "");
}

TEST_F(EditorsTest, AButtonWithoutAHandlerIsDisabled) {
    EXPECT_TRUE(Button("Res_Calculate").isEnabled());
    EXPECT_FALSE(Button("Res_Submit").isEnabled());
}

TEST_F(EditorsTest, AHandlerThatThrowsLogsOneErrorAndTheNextClickWorks) {
    Frame.Combo.SetItemIndex(2);
    Frame.Seen.clear();
    QTest::mouseClick(&Button("Res_Calculate"), Qt::LeftButton);
    const auto Errors = Host.TakeErrors();
    ASSERT_EQ(Errors.size(), 1u);
    EXPECT_NE(Errors[0].find("the handler broke"), fw::Text::npos);
    Frame.Combo.SetItemIndex(0);
    Frame.Seen.clear();
    QTest::mouseClick(&Button("Res_Calculate"), Qt::LeftButton);
    EXPECT_EQ(Frame.Seen, TTexts{"go "});
}

TEST_F(EditorsTest, AnAccountIsChosenFromTheMenu) {
    auto& Editor = *Find<ws::TPopupEditRenderer>();
    Frame.Account.SetPlaceholder("Account");
    EXPECT_EQ(Editor.Line().placeholderText(), "Account");
    QTest::mouseClick(Editor.OpenButton(), Qt::LeftButton);
    ASSERT_NE(Editor.GetMenu(), nullptr);
    ASSERT_EQ(Editor.GetMenu()->actions().size(), 2);
    Editor.GetMenu()->actions()[1]->trigger();
    EXPECT_EQ(Frame.Account.GetHint(), "B2");
    EXPECT_EQ(Editor.Line().text(), "B2 second");
    ASSERT_FALSE(Frame.Seen.empty());
    EXPECT_EQ(Frame.Seen.back(), "account B2");
    Frame.Account.SetEnabled(false);
    EXPECT_FALSE(Editor.isEnabled());
}

TEST_F(EditorsTest, TheRendererMayDieBeforeTheModelAndTheModelBeforeTheRenderer) {
    Window.reset();
    Frame.Down.SetValue(1.0);
    Frame.Combo.SetItemIndex(0);
    Frame.Grid.GetDataController().SetRecordCount(3);
    Frame.Grid.StartEdit(0, 0);
    Frame.Chart.SetTitle("alone");
    auto Other = std::make_unique<TTestFrame>();
    ws::TFrameRenderer Orphan(*Other, Context, nullptr);
    Orphan.resize(800, 600);
    Orphan.show();
    QTest::qWait(1);
    auto* Combo = Orphan.findChild<QComboBox*>();
    ASSERT_NE(Combo, nullptr);
    Other.reset();
    QTest::keyClick(Combo, Qt::Key_Down);
    Orphan.resize(900, 700);
    Orphan.grab();
    Context.SetSkin("Dark");
    QTest::qWait(1);
}

TEST_F(EditorsTest, CaptionsFollowTheModelAndHiddenItemsAreNotShown) {
    Frame.DownItem.SetCaption("Unten");
    bool Found = false;
    for (auto* Label : Window->findChildren<QLabel*>()) Found |= Label->text() == "Unten";
    EXPECT_TRUE(Found);
    EXPECT_TRUE(Find<ws::TComboRenderer>()->isVisible());
    Frame.ComboItem.SetVisible(false);
    EXPECT_FALSE(Find<ws::TComboRenderer>()->isVisible());
    Frame.ComboItem.SetVisible(true);
    EXPECT_TRUE(Find<ws::TComboRenderer>()->isVisible());
}

TEST_F(EditorsTest, TheListThatDropsDownHasTheNameOfItsCombo) {
    auto& Combo = *Find<ws::TComboRenderer>();
    Combo.showPopup();
    EXPECT_EQ(Combo.view()->accessibleName(), "Res_Exchange");
    Combo.hidePopup();
}

TEST_F(EditorsTest, ANumberWithTwoReadingsKeepsFocusAndMouseInItsField) {
    Frame.Up.SetValue(5.0);
    auto& Up = Spin(Frame.Up);
    auto& Combo = *Find<ws::TComboRenderer>();
    Frame.Combo.SetItemIndex(0);
    Up.Line().setFocus();
    Up.Line().selectAll();
    QTest::keyClicks(&Up.Line(), "1,500");
    Frame.Seen.clear();

    QTest::mouseClick(&Button("Res_Calculate"), Qt::LeftButton);
    EXPECT_TRUE(Up.Line().hasFocus());
    QTest::mouseClick(&Combo, Qt::LeftButton);
    EXPECT_FALSE(Combo.view()->isVisible());
    QTest::mouseClick(Spin(Frame.Down).UpButton(), Qt::LeftButton);
    QTest::keyClick(&Up.Line(), Qt::Key_Tab);
    QTest::mouseClick(&Find<ws::TPopupEditRenderer>()->Line(), Qt::LeftButton);
    EXPECT_TRUE(Window->findChildren<QMenu*>().isEmpty());
    ClickCell(0, kPremium);
    EXPECT_FALSE(Frame.Grid.GetEditor());

    EXPECT_TRUE(Up.Line().hasFocus());
    EXPECT_TRUE(Frame.Up.HasFocus());
    EXPECT_EQ(Up.Line().text(), "1,500");
    EXPECT_EQ(Frame.Seen, TTexts{});
    EXPECT_TRUE(Frame.Down.GetValue().IsNull());
    EXPECT_EQ(Up.Line().palette().color(QPalette::Text), Context.Color("coError"));
    EXPECT_NE(Up.Line().toolTip(), "");

    QTest::keyClick(&Up.Line(), Qt::Key_Escape);
    EXPECT_EQ(Up.Line().text(), "5");
    EXPECT_EQ(Up.Line().toolTip(), "");
    EXPECT_NE(Up.Line().palette().color(QPalette::Text), Context.Color("coError"));
    QTest::mouseClick(&Button("Res_Calculate"), Qt::LeftButton);
    EXPECT_EQ(Frame.Seen.back(), "go ");
}

TEST_F(EditorsTest, EveryFieldShowsANewNumberFormat) {
    Frame.Up.SetValue(1234.5);
    const fw::TScopedNumberFormat Format("de_DE");
    EXPECT_EQ(Spin(Frame.Up).Line().text(), "1234,5");
}

}  // namespace gui
