// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/selector/SymbolSelector.h"

#include <QAction>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "workstation/renderers/QtText.h"

namespace ws {

namespace {
constexpr int kAgeMs = 500;
constexpr int kLongestFilter = 64;
constexpr int kMargin = 4;
}  // namespace

TSymbolSelector::TSymbolSelector(TRenderContext& Context, TChainSelector::TUnderlying Underlying, TChosen OnChosen,
                                 QWidget* Parent)
    : QWidget(Parent),
      FContext(Context),
      FOnChosen(std::move(OnChosen)),
      FModel(std::move(Underlying)),
      FSearch(new QLineEdit(this)),
      FView(new TChainView(FModel, Context, this)),
      FFooter(new QLabel(this)) {
    auto* Box = new QVBoxLayout(this);
    Box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    Box->setSpacing(kMargin);
    Box->addWidget(FSearch);
    Box->addWidget(FView, 1);
    Box->addWidget(FFooter);
    FSearch->setClearButtonEnabled(true);
    FSearch->setMaxLength(kLongestFilter);
    FSearch->installEventFilter(this);
    setFocusProxy(FSearch);
    connect(FSearch, &QLineEdit::textChanged, this, [this](const QString& Text) { FModel.SetFilter(FromQt(Text)); });
    FView->OnTaken = [this] { Take(); };
    FLinks += FModel.OnRowsChanged.Connect([this] { ShowFooter(); });
    FLinks += FModel.OnCursorMoved.Connect([this] { ShowFooter(); });
    connect(&FAgeTimer, &QTimer::timeout, FView->viewport(), qOverload<>(&QWidget::update));
    FAgeTimer.start(kAgeMs);
    Retranslate();
}

void TSymbolSelector::Retranslate() {
    FSearch->setPlaceholderText(FContext.Translate("Res_SearchSymbol"));
    FSearch->setAccessibleName(FSearch->placeholderText());
    if (auto* Clear = FSearch->findChild<QAction*>()) Clear->setText(FContext.Translate("Res_Clear"));
    ShowFooter();
    FView->viewport()->update();
}

void TSymbolSelector::ShowFooter() {
    const auto Current = FModel.Current();
    FFooter->setText(Current ? FView->Describe(*Current) : QString());
}

// The popup's window has no border of its own.
void TSymbolSelector::paintEvent(QPaintEvent*) {
    QPainter Painter(this);
    Painter.setPen(FContext.Color("coBorder"));
    Painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

bool TSymbolSelector::eventFilter(QObject* Watched, QEvent* Event) {
    if (Event->type() != QEvent::KeyPress) return QWidget::eventFilter(Watched, Event);
    const auto* Key = static_cast<QKeyEvent*>(Event);
    return KeyPressed(Key->key(), Key->modifiers() & ~Qt::KeypadModifier) || QWidget::eventFilter(Watched, Event);
}

// The arrows belong to the chain; a key with a modifier belongs to the search line.
bool TSymbolSelector::KeyPressed(int Key, Qt::KeyboardModifiers Modifiers) {
    if (Modifiers != Qt::NoModifier) return false;
    switch (Key) {
        case Qt::Key_Return:
        case Qt::Key_Enter: return Take(), true;
        case Qt::Key_Up: return FModel.MoveRow(-1), true;
        case Qt::Key_Down: return FModel.MoveRow(1), true;
        case Qt::Key_PageUp: return FModel.MoveRow(-FView->PageRows()), true;
        case Qt::Key_PageDown: return FModel.MoveRow(FView->PageRows()), true;
        case Qt::Key_Left: return FModel.MoveSide(ECallPut::Call), true;
        case Qt::Key_Right: return FModel.MoveSide(ECallPut::Put), true;
        default: return false;
    }
}

void TSymbolSelector::Take() {
    const auto Current = FModel.Current();
    const auto Chosen = FOnChosen;  // the receiver may close the popup
    if (Current && Chosen) Chosen(FModel.SymbolAt(*Current));
}

}  // namespace ws
