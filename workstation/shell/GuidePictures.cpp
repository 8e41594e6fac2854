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

namespace ws {

namespace {

constexpr int kSettleMs = 400;
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
    void Settle() { FWait(kSettleMs); }
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
    // For what runs a loop of its own: the picture is taken in it, then it is closed.
    void ShootDuring(const std::function<void()>& Run) {
        QTimer::singleShot(2 * kSettleMs, &FWindow, [this] {
            Shoot();
            if (QWidget* Modal = QApplication::activeModalWidget()) Modal->close();
        });
        Run();
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
     }},
    {"confirm", [](TStage& Stage) { Stage.ShootDuring([&] { Stage.Window().Commands().Run("view.submit"); }); }},
    {"shortcuts",
     [](TStage& Stage) {
         Stage.Window().Commands().Run("help.shortcuts");
         Stage.Settle();
         Stage.Shoot();
         Stage.CloseDialogs();
     }},
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
