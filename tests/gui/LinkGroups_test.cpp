// SPDX-License-Identifier: GPL-3.0-or-later
// Link groups in the title bars of the real window.
#include <QAccessible>
#include <QMenu>

#include "framework/controls/PopupEdit.h"
#include "tests/gui/MainWindowTest.h"
#include "workstation/resources/Skins.h"
#include "workstation/views/TradingViews.h"

namespace gui {

class LinkGroupsTest : public MainWindowTest {
protected:
    LinkGroupsTest() {
        Workstation->Store().WriteSetting("Shell", "FirstStartDone", "1");
        Window->OpenStartView();
        One = Window->Docks().Current();
        Two = &Open(One->View());
    }
    ws::TViewDock& Open(fw::TIBaseView& View) { return *Window->Docks().Open(View); }
    fw::TIBaseView& TradingView() const {
        for (const auto& Each : Window->Catalog().Views())
            if (dynamic_cast<ws::TTradingView*>(Each.get())) return *Each;
        throw std::runtime_error("no trading view");
    }
    static fw::TPopupEdit& Account(ws::TViewDock& Dock) {
        return *Dock.Frame()->FindControl<fw::TPopupEdit>("edtAccount");
    }
    static bool Holds(ws::TViewDock& Dock, const char* Code) {
        return QTest::qWaitFor([&] { return Account(Dock).GetHint() == Code; }, 2000);
    }
    static ws::TLinkGroupButton& Button(ws::TViewDock& Dock) { return Dock.TitleBar().GroupButton(); }
    // As a user without a mouse: the button is pressed, the entry chosen.
    void Choose(ws::TViewDock& Dock, int Number) {
        Button(Dock).setFocus();
        QTest::keyClick(&Button(Dock), Qt::Key_Space);
        QMenu* Menu = Button(Dock).Menu();
        ASSERT_NE(Menu, nullptr);
        ASSERT_EQ(Menu->actions().size(), ws::kLinkGroupCount + 1);
        while (Menu->activeAction() != Menu->actions()[Number]) QTest::keyClick(Menu, Qt::Key_Down);
        QTest::keyClick(Menu, Qt::Key_Return);
    }
    // Pictures to look at, where the environment names a folder for them.
    void Picture(const fw::Text& Name) const {
        const char* Place = std::getenv("VENTIQ_PICTURES");
        if (!Place) return;
        QTest::qWait(10);
        Window->grab().save(QString::fromUtf8(Place) + QLatin1Char('/') + ws::ToQt(Name));
    }

    ws::TViewDock *One = nullptr, *Two = nullptr;
};

TEST_F(LinkGroupsTest, ViewsOfAGroupShareTheAccountAndLaterOnesGetIt) {
    Choose(*One, 2);
    EXPECT_EQ(One->GetGroup(), "2");
    EXPECT_EQ(Button(*One).Number(), 2);
    Choose(*Two, 2);
    Account(*One).Choose(2);
    EXPECT_EQ(Account(*One).GetHint(), "H001");
    EXPECT_TRUE(Holds(*Two, "H001"));
    EXPECT_FALSE(Two->Renderer()->isAncestorOf(QApplication::focusWidget())) << "the focus stays where the user is";
    ws::TViewDock& Later = Open(One->View());
    EXPECT_EQ(Account(Later).GetHint(), "A100");
    Choose(Later, 2);
    EXPECT_TRUE(Holds(Later, "H001"));
    EXPECT_EQ(Account(*One).GetHint(), "H001");
}

TEST_F(LinkGroupsTest, TheGroupsAccountIsKeptWhenItsWindowsClose) {
    fw::TIBaseView& View = One->View();
    EXPECT_TRUE(One->SetGroup("4"));
    Account(*One).Choose(1);
    ASSERT_EQ(Account(*One).GetHint(), "A200");
    Window->Docks().CloseAll();
    ws::TViewDock& Later = Open(View);
    EXPECT_EQ(Account(Later).GetHint(), "A100");
    EXPECT_TRUE(Later.SetGroup("4"));
    EXPECT_TRUE(Holds(Later, "A200"));
}

TEST_F(LinkGroupsTest, TheProgramSetsAGroupAsTheUserDoesAndWrongIdsChangeNothing) {
    EXPECT_TRUE(One->SetGroup("6"));
    EXPECT_TRUE(One->SetGroup("6"));
    for (const char* Wrong : {"0", "7", "-1", "06", " 6", "six", "6,5"}) EXPECT_FALSE(One->SetGroup(Wrong)) << Wrong;
    EXPECT_EQ(One->GetGroup(), "6");
    EXPECT_EQ(Button(*One).Number(), 6);
    Choose(*One, 0);
    EXPECT_EQ(One->GetGroup(), "");
}

TEST_F(LinkGroupsTest, OnlyViewsThatTakeAGroupShowTheButton) {
    EXPECT_TRUE(Button(*One).isVisibleTo(One));
    ws::TViewDock& Trading = Open(TradingView());
    EXPECT_FALSE(Button(Trading).isVisibleTo(&Trading));
    EXPECT_FALSE(Trading.SetGroup("1"));
    EXPECT_EQ(Trading.GetGroup(), "");
}

TEST_F(LinkGroupsTest, TheGroupIsReadAndSeenInEveryLanguageAndSkin) {
    Choose(*Two, 2);
    const auto Name = [this] { return QAccessible::queryAccessibleInterface(&Button(*Two))->text(QAccessible::Name); };
    for (const auto& [Language, Text] : {std::pair{1, "連結群組 2"}, {2, "关联组 2"}, {0, "Link group 2"}}) {
        Window->SetLanguage(Language);
        EXPECT_EQ(Name(), QString::fromUtf8(Text));
    }
    for (const std::string& Skin : ws::TSkinTable::Embedded().Skins()) {
        Window->SetSkin(Skin);
        const QImage Seen = Button(*Two).icon().pixmap(32).toImage();
        EXPECT_EQ(Seen.pixelColor(Seen.width() / 2, 2), Context.Color("coGroup2")) << Skin;
        for (int Number = 1; Number <= ws::kLinkGroupCount; ++Number) {
            EXPECT_TRUE(Two->SetGroup(std::to_string(Number)));
            Picture("group-" + Skin + std::to_string(Number) + ".png");
        }
        EXPECT_TRUE(Two->SetGroup(""));
        Picture("group-" + Skin + "0.png");
        EXPECT_TRUE(Two->SetGroup("2"));
    }
}

}  // namespace gui
