// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/WorkspaceDesk.h"

#include <algorithm>
#include <map>

#include <QGuiApplication>
#include <QLayout>
#include <QMainWindow>
#include <QResizeEvent>
#include <QScreen>
#include <QTimer>
#include <QToolButton>

#include "framework/base/Dispatch.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

struct TArea {
    const char* Name;
    Qt::DockWidgetArea Area;
};
constexpr TArea kAreas[] = {{"top", Qt::TopDockWidgetArea},
                            {"bottom", Qt::BottomDockWidgetArea},
                            {"left", Qt::LeftDockWidgetArea},
                            {"right", Qt::RightDockWidgetArea}};

const char* AreaName(Qt::DockWidgetArea Area) {
    for (const TArea& Each : kAreas)
        if (Each.Area == Area) return Each.Name;
    return kAreas[0].Name;
}

Qt::DockWidgetArea AreaOf(const std::string& Name) {
    for (const TArea& Each : kAreas)
        if (Each.Name == Name) return Each.Area;
    return kAreas[0].Area;
}

TRectangle FromRect(const QRect& Rect) { return {Rect.x(), Rect.y(), Rect.width(), Rect.height()}; }
QRect ToRect(const TRectangle& Place) { return {Place.X, Place.Y, Place.Width, Place.Height}; }

std::vector<TRectangle> PresentScreens() {
    std::vector<TRectangle> Result;
    for (const QScreen* Screen : QGuiApplication::screens()) {
        const TRectangle Place = FromRect(Screen->availableGeometry());
        if (std::find(Result.begin(), Result.end(), Place) == Result.end()) Result.push_back(Place);  // mirrored
    }
    return Result;
}

// The desktop makes a window large when it has the time, and the sizes of its docks only fit into that.
class TAtNextSize : public QObject {
public:
    TAtNextSize(QWidget& Window, std::function<void()> Do) : QObject(&Window), FDo(std::move(Do)) {
        Window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* Window, QEvent* Event) override {
        if (Event->type() != QEvent::Resize || !static_cast<QWidget*>(Window)->isMaximized()) return false;
        Window->removeEventFilter(this);
        QTimer::singleShot(0, this, [this] {
            FDo();
            deleteLater();
        });
        return false;
    }

private:
    std::function<void()> FDo;
};

}  // namespace

TWorkspaceDesk::TWorkspaceDesk(QMainWindow& Window, TViewDocks& Docks, const TViewCatalog& Catalog)
    : Screens(PresentScreens), FWindow(Window), FDocks(Docks), FCatalog(Catalog), FEmpty(Window.saveState()) {
    FOpenedLink = FDocks.OnOpened.Connect([this](TViewDock& Dock) { Fix(Dock); });
}

// --- how it looks

TWorkspaceDesk::TSlot& TWorkspaceDesk::SlotOf(const TViewDock& Dock) {
    const auto Found =
        std::find_if(FSlots.begin(), FSlots.end(), [&](const TSlot& Each) { return Each.Dock == Dock.Key(); });
    return Found == FSlots.end() ? FSlots.emplace_back(TSlot{{}, Dock.Key()}) : *Found;
}

TViewEntry TWorkspaceDesk::EntryOf(TViewDock& Dock) const {
    TViewEntry Entry;
    Entry.ViewId = fw::DispatchValue("GetViewID", 0, [&] { return Dock.View().GetViewID(); });
    Entry.Key = Dock.Key();
    Entry.Group = Dock.GetGroup();
    Entry.Layout = Dock.View().GetLayoutData(Dock.Handle());
    Entry.Area = AreaName(FWindow.dockWidgetArea(&Dock));
    Entry.Floating = Dock.isFloating();
    if (Entry.Floating) {
        Entry.Place = FromRect(Dock.geometry());
        return Entry;
    }
    const QList<QDockWidget*> Beside = FWindow.tabifiedDockWidgets(&Dock);
    Entry.Front = Beside.isEmpty() || !Dock.visibleRegion().isEmpty();
    if (Entry.Front) Entry.Place = FromRect(Dock.geometry());
    const auto First = std::find_if(FDocks.Docks().begin(), FDocks.Docks().end(),
                                    [&](TViewDock* Each) { return Each == &Dock || Beside.contains(Each); });
    if (*First != &Dock) Entry.With = (*First)->Key();
    return Entry;
}

TWorkspaceSections TWorkspaceDesk::Capture() {
    std::erase_if(FSlots, [&](const TSlot& Each) { return !Each.Dock.empty() && !FDocks.DockOf(Each.Dock); });
    for (TViewDock* Dock : FDocks.Docks()) WriteView(SlotOf(*Dock).Section, EntryOf(*Dock));
    TWorkspaceSections Sections;
    for (const TSlot& Each : FSlots) Sections.push_back(Each.Section);
    WriteWindow(Sections, {FromRect(FWindow.isMaximized() ? FWindow.normalGeometry() : FWindow.geometry()),
                           FWindow.isMaximized(), FLocked, FWindow.saveState().toBase64().toStdString()});
    return Sections;
}

bool TWorkspaceDesk::Keeps(const std::string& Key) const {
    return std::any_of(FSlots.begin(), FSlots.end(), [&](const TSlot& Each) {
        const auto Entry = Each.Dock.empty() ? ReadView(Each.Section) : std::nullopt;
        return Entry && Entry->Key == Key;
    });
}

bool TWorkspaceDesk::BroughtLayout(const TViewDock& Dock) const {
    return std::any_of(FSlots.begin(), FSlots.end(), [&](const TSlot& Each) {
        const auto Entry = Each.Dock == Dock.Key() ? ReadView(Each.Section) : std::nullopt;
        return Entry && !Entry->Layout.empty();
    });
}

// --- back again

fw::TIBaseView* TWorkspaceDesk::VisibleView(int Id) const {
    for (const auto& View : FCatalog.Views())
        if (fw::DispatchValue("GetViewID", false, [&] { return View->GetViewID() == Id && View->GetIsVisible(); }))
            return View.get();
    return nullptr;
}

TViewDock* TWorkspaceDesk::Open(TWorkspaceSection& Section) {
    const std::optional<TViewEntry> Entry = ReadView(Section);
    fw::TIBaseView* View = Entry ? VisibleView(Entry->ViewId) : nullptr;
    TViewDock* Dock = View ? FDocks.Open(*View, Entry->Key) : nullptr;
    if (!Dock) return nullptr;
    Dock->SetGroup(Entry->Group);
    if (!Entry->Layout.empty()) View->SetLayoutData(Dock->Handle(), Entry->Layout);
    return Dock;
}

std::vector<TViewDock*> TWorkspaceDesk::Restore(TWorkspaceSections Sections) {
    SetLocked(false);
    FSlots.clear();
    std::vector<TViewDock*> Opened;
    for (TWorkspaceSection& Section : Sections) {
        TViewDock* Dock = Open(Section);
        FSlots.push_back({std::move(Section), Dock ? Dock->Key() : std::string()});
        if (Dock) Opened.push_back(Dock);
    }
    TWorkspaceSections Kept;
    for (const TSlot& Each : FSlots) Kept.push_back(Each.Section);
    const TWindowEntry Window = ReadWindow(Kept);
    Arrange(Window);
    SetLocked(Window.Locked);
    return Opened;
}

void TWorkspaceDesk::Arrange(const TWindowEntry& Window) {
    const auto Place = [&] {
        if (!Window.Place.IsEmpty()) FWindow.setGeometry(ToRect(OntoScreens(Window.Place, Screens())));
    };
    const bool WasMaximized = FWindow.isMaximized();
    delete FAtNextSize;
    // A large window has the desktop's geometry, not one of ours.
    if (WasMaximized && !Window.Maximized) FWindow.setWindowState(FWindow.windowState() & ~Qt::WindowMaximized);
    if (!WasMaximized || !Window.Maximized) Place();
    FWindow.setWindowState(FWindow.windowState().setFlag(Qt::WindowMaximized, Window.Maximized));
    const QByteArray Arrangement = QByteArray::fromBase64(QByteArray::fromStdString(Window.Arrangement));
    if (!FWindow.restoreState(Arrangement)) {
        ArrangeByEntries();
        // Views that stood side by side for a moment may have widened it.
        FWindow.layout()->activate();
        if (!FWindow.isMaximized()) Place();
    } else if (Window.Maximized && !WasMaximized) {
        FAtNextSize = new TAtNextSize(FWindow, [this, Arrangement] { FWindow.restoreState(Arrangement); });
    }
    // The toolkit has its own mind about places outside the main screen.
    ForEachOpen([](TViewDock& Dock, const TViewEntry& Entry) {
        if (Dock.isFloating() && !Entry.Place.IsEmpty()) Dock.setGeometry(ToRect(Entry.Place));
    });
    std::string First;
    ForEachOpen([&First](TViewDock& Dock, const TViewEntry& Entry) {
        if (First.empty() && Entry.Front) First = Dock.Key();
    });
    // What is seen first is what commands go to; a floating window takes the focus when it appears.
    QTimer::singleShot(0, &FWindow, [this, First] {
        TViewDock* Dock = FDocks.DockOf(First);
        if (!Dock) return;
        FWindow.activateWindow();
        if (QWidget* Form = Dock->widget()) Form->setFocus(Qt::OtherFocusReason);
        FDocks.Use(*Dock);
    });
    BringBack();
}

void TWorkspaceDesk::ForEachOpen(const std::function<void(TViewDock&, const TViewEntry&)>& Do) const {
    for (const TSlot& Slot : FSlots) {
        TViewDock* Dock = Slot.Dock.empty() ? nullptr : FDocks.DockOf(Slot.Dock);
        const std::optional<TViewEntry> Entry = ReadView(Slot.Section);
        if (Dock && Entry) Do(*Dock, *Entry);
    }
}

// Without the toolkit's account: areas, tabs, floating places and heights; how views in one area are nested is lost.
void TWorkspaceDesk::ArrangeByEntries() {
    FWindow.restoreState(FEmpty);
    std::map<std::string, TViewDock*> ByKey;  // as the entries call them
    QList<QDockWidget*> Sized;
    QList<int> Heights;
    ForEachOpen([&](TViewDock& Dock, const TViewEntry& Entry) {
        ByKey[Entry.Key] = &Dock;
        FWindow.addDockWidget(AreaOf(Entry.Area), &Dock);
        Dock.setFloating(Entry.Floating);
        Dock.show();
        if (Entry.Floating) return;
        if (const auto First = ByKey.find(Entry.With); First != ByKey.end())
            FWindow.tabifyDockWidget(First->second, &Dock);
        if (!Entry.Front || Entry.Place.IsEmpty()) return;
        Sized << &Dock;
        Heights << Entry.Place.Height;
    });
    ForEachOpen([](TViewDock& Dock, const TViewEntry& Entry) {
        if (Entry.Front && !Entry.Floating) Dock.raise();
    });
    FWindow.resizeDocks(Sized, Heights, Qt::Vertical);
}

void TWorkspaceDesk::Clear() {
    delete FAtNextSize;
    SetLocked(false);
    FSlots.clear();
    FWindow.restoreState(FEmpty);
}

void TWorkspaceDesk::BringBack() {
    const std::vector<TRectangle> Present = Screens();
    for (TViewDock* Dock : FDocks.Docks()) {
        if (!Dock->isFloating()) continue;
        const TRectangle Now = FromRect(Dock->geometry()), Place = OntoScreens(Now, Present);
        if (Place != Now) Dock->setGeometry(ToRect(Place));
    }
    const TRectangle Now = FromRect(FWindow.geometry()), Place = OntoScreens(Now, Present);
    if (Place != Now && !FWindow.isMaximized()) FWindow.setGeometry(ToRect(Place));
}

// --- lock

void TWorkspaceDesk::SetLocked(bool Locked) {
    FLocked = Locked;
    for (QDockWidget* Dock : FWindow.findChildren<QDockWidget*>()) FixFeatures(*Dock);
    for (TViewDock* Dock : FDocks.Docks()) Fix(*Dock);
}

void TWorkspaceDesk::FixFeatures(QDockWidget& Dock) const {
    Dock.setFeatures(FLocked ? QDockWidget::NoDockWidgetFeatures
                             : QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable |
                                   QDockWidget::DockWidgetFloatable);
}

void TWorkspaceDesk::Fix(TViewDock& Dock) const {
    FixFeatures(Dock);
    Dock.TitleBar().FloatButton().setEnabled(!FLocked);
    Dock.TitleBar().CloseButton().setEnabled(!FLocked);
}

}  // namespace ws
