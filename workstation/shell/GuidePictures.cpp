// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/GuidePictures.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

#include "framework/controls/Chart.h"
#include "framework/data/ColumnIds.h"
#include "workstation/renderers/ChartRenderer.h"
#include "workstation/renderers/GridRenderer.h"
#include "workstation/renderers/QtText.h"
#include "workstation/script/Player.h"
#include "workstation/shell/StrategyDialog.h"
#include "workstation/views/TradingViews.h"

namespace ws {

namespace {

constexpr int kSettleMs = 400;
constexpr int kMarketMs = 2500;
constexpr int kPatienceMs = 12'000;
constexpr int kStepMs = 50;
constexpr char kGrid[] = "PositionGridView";

// What one scene works with.
class TStage {
public:
    TStage(TMainWindow& Window, std::function<void(int)> Wait) : FWindow(Window), FWait(std::move(Wait)) {}

    TMainWindow& Window() { return FWindow; }
    TViewDock& Dock() { return *FWindow.Docks().Current(); }
    fw::TFrame& Frame() { return *Dock().Frame(); }
    // What is to be deleted goes, too: no loop runs around the scenes, in which it would.
    void Settle() {
        FWait(kSettleMs);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void WaitMarket() { FWait(kMarketMs); }  // for quotes and fills
    bool WaitFor(const std::function<bool()>& Ready) {
        for (int Waited = 0; Waited < kPatienceMs && !Ready(); Waited += kStepMs) FWait(kStepMs);
        return Ready();
    }
    void Play(const TStep& Step) { TPlayer(Frame()).Play(Step); }
    template <class T>
    T* Find() {
        for (QWidget* Each : Dock().findChildren<QWidget*>())
            if (T* Found = dynamic_cast<T*>(Each)) return Found;
        return nullptr;
    }

    // Out of the tabs, beside the other.
    void Split(TViewDock& First, TViewDock& Second, Qt::Orientation Way) {
        FWindow.removeDockWidget(&Second);
        FWindow.splitDockWidget(&First, &Second, Way);
        Second.show();
    }

    // The window, and what stands over it: dialogs, popups, menus.
    void Shoot() {
        QCoreApplication::processEvents();
        FPicture = FWindow.grab().toImage();
        QPainter Painter(&FPicture);
        for (QWidget* Each : QApplication::topLevelWidgets()) {
            if (!Each->isVisible() || Each == &FWindow || Each->isHidden() || Each->inherits("QTipLabel")) continue;
            const QPoint At = Each->mapToGlobal(QPoint()) - FWindow.mapToGlobal(QPoint());
            Painter.drawPixmap(At, Each->grab());
            Painter.setPen(Qt::gray);
            Painter.drawRect(QRect(At, Each->size()).adjusted(-1, -1, 0, 0));
        }
    }
    // A dialog, whether it runs a loop of its own or not: the picture is taken while it is open, then it is closed.
    void ShootDialog(const char* Command) {
        QTimer::singleShot(2 * kSettleMs, &FWindow, [this] {
            Shoot();
            if (QWidget* Modal = QApplication::activeModalWidget()) Modal->close();
        });
        FWindow.Commands().Run(Command);
        FWait(3 * kSettleMs);
    }
    void CloseDialogs() {
        for (QWidget* Each : QApplication::topLevelWidgets())
            if (Each != &FWindow && Each->isVisible() && Each->isWindow()) Each->close();
        Settle();
    }
    const QImage& Picture() const { return FPicture; }

private:
    TMainWindow& FWindow;
    std::function<void(int)> FWait;
    QImage FPicture;
};

struct TScene {
    const char* Name;
    void (*Play)(TStage& Stage);
};

void PointAtChart(TStage& Stage) {
    auto* Chart = Stage.Find<TChartRenderer>();
    if (!Chart) return;
    const QRect Area = Chart->GetPlotArea();
    Stage.Frame()
        .FindControl<fw::TChart>("DataChart")
        ->MouseMove(Area.left() + Area.width() * 2 / 3, Area.center().y());
}

// Orders of the strategy are sent, so that there is something to see.
void ShootTrading(TStage& Stage) {
    TViewDock* Payoff = &Stage.Dock();
    QTimer::singleShot(kSettleMs, &Stage.Window(), [] {
        if (auto* Modal = qobject_cast<QDialog*>(QApplication::activeModalWidget())) Modal->accept();
    });
    Stage.Window().Commands().Run("view.submit");
    Stage.Settle();
    std::vector<TViewDock*> Opened;
    for (const auto& View : Stage.Window().Catalog().Views())
        if (dynamic_cast<TTradingView*>(View.get())) Opened.push_back(Stage.Window().Docks().Open(*View));
    for (size_t i = 0; i < Opened.size(); ++i) Stage.Split(i == 0 ? *Payoff : *Opened[i - 1], *Opened[i], Qt::Vertical);
    Payoff->hide();
    Stage.WaitMarket();
    Stage.Shoot();
    for (TViewDock* Each : Opened) Stage.Window().Docks().CloseLater(*Each);
    Payoff->show();
    Stage.Settle();
    Stage.Window().Docks().Use(*Payoff);
}

void ShootStrategies(TStage& Stage) {
    struct TKept {
        const char *Name, *Note;
    };
    for (const TKept& Each : {TKept{"Iron condor December", "Quiet market; close at half of the premium"},
                              TKept{"Hedge of account A100", "Puts below 25,000"}}) {
        Stage.Window().Commands().Run("strategy.save");
        TStrategyDialog* Dialog = Stage.Window().Strategies().Dialog();
        if (!Dialog) return;
        Dialog->Line().selectAll();
        Dialog->Line().insert(QLatin1String(Each.Name));
        Dialog->Note().setText(QLatin1String(Each.Note));
        Dialog->TakeButton().click();
        Stage.Settle();
    }
    Stage.ShootDialog("strategy.open");
}

void ShootGroups(TStage& Stage) {
    TViewDock* First = &Stage.Dock();
    TViewDock* Second = Stage.Window().Docks().Open(First->View());
    if (!Second) return;
    Stage.Split(*First, *Second, Qt::Horizontal);
    First->SetGroup(LinkGroupId(2));
    Second->SetGroup(LinkGroupId(2));
    Stage.Settle();
    Stage.Shoot();
    Stage.Window().Docks().CloseLater(*Second);
    Stage.Settle();
    First->SetGroup(LinkGroupId(0));
    Stage.Window().Docks().Use(*First);
}

constexpr TScene kScenes[] = {
    {"start", [](TStage& Stage) { Stage.Shoot(); }},
    {"legs",
     [](TStage& Stage) {
         auto* View = Stage.Frame().FindControl<fw::TGridTableView>(kGrid);
         if (auto* Grid = Stage.Find<TGridRenderer>()) Grid->setFocus();
         View->StartEdit(1, 5);
         Stage.Settle();
         Stage.Shoot();
         View->PostEditor();
     }},
    {"selector",
     [](TStage& Stage) {
         auto* Grid = Stage.Find<TGridRenderer>();
         auto* View = Stage.Frame().FindControl<fw::TGridTableView>(kGrid);
         Grid->setFocus();
         View->SetFocusedCell(View->GetDataController().GetRecordCount() - 1, 0);
         QKeyEvent Press(QEvent::KeyPress, Qt::Key_F4, Qt::NoModifier);
         QCoreApplication::sendEvent(Grid, &Press);
         Stage.Settle();
         Stage.Shoot();
         Stage.CloseDialogs();
         View->CancelEdit();
     }},
    {"result",
     [](TStage& Stage) {
         Stage.Play(TStep::EnterNumber("edtInterval", 250));
         Stage.Window().Commands().Run("view.calculate");
         Stage.Settle();
         PointAtChart(Stage);
         Stage.Settle();
         Stage.Shoot();
         Stage.Frame().FindControl<fw::TChart>("DataChart")->MouseLeave();
     }},
    {"confirm", [](TStage& Stage) { Stage.ShootDialog("view.submit"); }},
    {"trading", ShootTrading},
    {"strategies", ShootStrategies},
    {"groups", ShootGroups},
    {"shortcuts", [](TStage& Stage) { Stage.ShootDialog("help.shortcuts"); }},
    {"preferences", [](TStage& Stage) { Stage.ShootDialog("file.preferences"); }},
    {"dark",
     [](TStage& Stage) {
         Stage.Window().SetLanguage(kLanguageTraditional);
         Stage.Window().SetSkin("Dark");
         Stage.Settle();
         Stage.Shoot();
         Stage.Window().SetSkin("Light");
         Stage.Window().SetLanguage(kLanguageEnglish);
     }},
};

}  // namespace

bool MakeGuidePictures(TMainWindow& Window, const std::filesystem::path& Folder,
                       const std::function<void(int Milliseconds)>& Wait,
                       const std::function<void(const std::filesystem::path& File)>& Wrote) {
    TStage Stage(Window, Wait);
    if (!Window.PlayFirstStart() || !Stage.WaitFor([&] { return !Window.IsPlaying(); })) return false;
    Stage.Settle();
    for (const TScene& Scene : kScenes) {
        Scene.Play(Stage);
        const std::filesystem::path File = Folder / (std::string(Scene.Name) + ".png");
        if (!Stage.Picture().save(ToQt(File.string()), "PNG")) return false;
        Wrote(File);
    }
    return true;
}

}  // namespace ws
