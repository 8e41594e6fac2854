// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/CellEditors.h"

#include <array>
#include <utility>

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyle>

#include "workstation/renderers/ButtonLine.h"
#include "workstation/renderers/CellPopup.h"
#include "workstation/renderers/GridModel.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

struct TLeaveKey {
    int Key;
    Qt::KeyboardModifiers Modifiers;
    ELeave Way;
    bool UpDown = false;
};
constexpr std::array kLeaveKeys{TLeaveKey{Qt::Key_Return, Qt::NoModifier, ELeave::Down},
                                TLeaveKey{Qt::Key_Enter, Qt::NoModifier, ELeave::Down},
                                TLeaveKey{Qt::Key_Escape, Qt::NoModifier, ELeave::Cancel},
                                TLeaveKey{Qt::Key_Tab, Qt::NoModifier, ELeave::Next},
                                TLeaveKey{Qt::Key_Backtab, Qt::NoModifier, ELeave::Previous},
                                TLeaveKey{Qt::Key_Backtab, Qt::ShiftModifier, ELeave::Previous},
                                TLeaveKey{Qt::Key_Insert, Qt::NoModifier, ELeave::InputRow},
                                TLeaveKey{Qt::Key_D, Qt::ControlModifier, ELeave::FillDown},
                                TLeaveKey{Qt::Key_Up, Qt::NoModifier, ELeave::Up, true},
                                TLeaveKey{Qt::Key_Down, Qt::NoModifier, ELeave::Down, true}};

struct TKeyCode {
    int Key;
    int Code;
};
// Key codes as the framework counts them; letters and digits are their capital ASCII code.
constexpr std::array kKeyCodes{
    TKeyCode{Qt::Key_Up, fw::kKeyUp}, TKeyCode{Qt::Key_Down, fw::kKeyDown}, TKeyCode{Qt::Key_Backspace, 8},
    TKeyCode{Qt::Key_Tab, 9},         TKeyCode{Qt::Key_Backtab, 9},         TKeyCode{Qt::Key_Return, 13},
    TKeyCode{Qt::Key_Enter, 13},      TKeyCode{Qt::Key_Shift, 16},          TKeyCode{Qt::Key_Control, 17},
    TKeyCode{Qt::Key_Escape, 27},     TKeyCode{Qt::Key_PageUp, 33},         TKeyCode{Qt::Key_PageDown, 34},
    TKeyCode{Qt::Key_End, 35},        TKeyCode{Qt::Key_Home, 36},           TKeyCode{Qt::Key_Left, 37},
    TKeyCode{Qt::Key_Right, 39},      TKeyCode{Qt::Key_Insert, 45},         TKeyCode{Qt::Key_Delete, kCodeDelete}};

constexpr int kPageSteps = 10;

int CodeOf(const QKeyEvent& Event) {
    for (const TKeyCode& K : kKeyCodes)
        if (K.Key == Event.key()) return K.Code;
    return Event.key() < 0x80 ? Event.key() : 0;
}

// Plain, popup and spin editors: a line of text with the buttons of the kind.
class TLineCellEditor : public TButtonLine, public TCellEditorWidget {
public:
    TLineCellEditor(fw::TGridTableView& View, TRenderContext& Context, QWidget* Parent, ELineButtons Buttons)
        : TButtonLine(Parent, Buttons), TCellEditorWidget(View), FContext(Context), FPopup(View, Context, *this) {
        setAutoFillBackground(true);
        setBackgroundRole(QPalette::Base);
        Line().setFrame(false);
        OnTyped = [this](const QString& Text) {
            if (auto* E = Editor()) E->SetEditText(FromQt(Text));
        };
        TButtonLine::OnStep = [this](int Steps) {
            if (auto* E = Editor()) E->Spin(Steps);
        };
        TButtonLine::OnOpen = [this] { FPopup.Open(); };
        OnKey = [this](QKeyEvent* Event) { return KeyPressed(Event); };
        const fw::TCellEditor& E = *Editor();
        FSpins = E.IsSpin();
        Line().setAlignment(ToQtAlignment(AlignmentOf(E)));
        Reload();
        if (E.IsCaretAtEnd())
            Line().end(false);
        else
            Line().selectAll();
    }

    QWidget* Widget() override { return this; }
    QWidget* FocusWidget() override { return &Line(); }

    void Reload() override {
        const auto* E = Editor();
        if (!E) return;
        ShowText(ToQt(E->GetText()));
        if (E->IsCaretAtEnd() && !Line().hasSelectedText()) Line().end(false);
    }

    void Step(int Steps) override { TButtonLine::OnStep(Steps); }
    void Open() override {
        if (OpenButton()) FPopup.Open();
    }

    void TypeFirst(QKeyEvent* Event) override {
        TellKey(*Event);
        Line().setText(Event->text());
        OnTyped(Event->text());
    }

    void ShowReason(const QString& Reason) override {
        const auto* Popup = Editor() ? dynamic_cast<fw::TcxPopupEditProperties*>(Editor()->GetProperties()) : nullptr;
        Line().setToolTip(Reason);
        QPalette Colors = palette();
        if (!Reason.isEmpty()) {
            const QColor Ink = ReadableOn(Colors.color(QPalette::Base), FContext.Color("coError"));
            Colors.setColor(QPalette::Text, Ink);
        }
        Line().setPalette(Colors);
        delete std::exchange(FErrorIcon, nullptr);
        if (Popup && Popup->ShowErrorIcon && !Reason.isEmpty())
            FErrorIcon =
                Line().addAction(style()->standardIcon(QStyle::SP_MessageBoxCritical), QLineEdit::LeadingPosition);
    }

protected:
    // An input method writes without a key press of its own.
    bool eventFilter(QObject* Watched, QEvent* Event) override {
        if (Watched == &Line() && Event->type() == QEvent::InputMethod && Editor() &&
            !static_cast<QInputMethodEvent*>(Event)->commitString().isEmpty())
            Editor()->KeyDown(kCodeComposed);
        return TButtonLine::eventFilter(Watched, Event);
    }

private:
    static fw::EAlignment AlignmentOf(const fw::TCellEditor& E) {
        const auto* Spin = dynamic_cast<const fw::TcxSpinEditProperties*>(E.GetProperties());
        if (Spin && Spin->LeftAlignWhileEditing) return fw::EAlignment::Left;
        return E.GetProperties() ? E.GetProperties()->Alignment : fw::EAlignment::Left;
    }

    // A spin editor's model spins by itself when it is told of Up and Down; a page is as many of them.
    bool KeyPressed(QKeyEvent* Event) {
        if (FSpins && (Event->key() == Qt::Key_PageUp || Event->key() == Qt::Key_PageDown)) {
            for (int i = 0; i < kPageSteps && Editor(); ++i)
                Editor()->KeyDown(Event->key() == Qt::Key_PageUp ? fw::kKeyUp : fw::kKeyDown);
            return true;
        }
        if (HandleKey(Event, !FSpins)) return true;
        if ((Event->key() == Qt::Key_F4 || (Event->key() == Qt::Key_Down && Event->modifiers() & Qt::AltModifier)) &&
            OpenButton()) {
            FPopup.Open();
            return true;
        }
        return FSpins && (Event->key() == Qt::Key_Up || Event->key() == Qt::Key_Down);
    }

    TRenderContext& FContext;
    TCellPopup FPopup;
    QAction* FErrorIcon = nullptr;
    bool FSpins = false;
};

// Fixed lists: the items are the open editor's own.
class TComboCellEditor : public QComboBox, public TCellEditorWidget {
public:
    TComboCellEditor(fw::TGridTableView& View, QWidget* Parent) : QComboBox(Parent), TCellEditorWidget(View) {
        setFrame(false);
        setAutoFillBackground(true);
        setFocusPolicy(Qt::StrongFocus);
        connect(this, &QComboBox::activated, this, [this](int Index) {
            if (auto* E = Editor()) E->SelectItem(Index);
        });
        Reload();
    }

    QWidget* Widget() override { return this; }
    QWidget* FocusWidget() override { return this; }

    void Reload() override {
        const auto* E = Editor();
        if (!E) return;
        const QSignalBlocker Silent(this);
        const auto& Items = E->GetItems();
        bool Same = count() == static_cast<int>(Items.size());
        for (int i = 0; Same && i < count(); ++i) Same = itemText(i) == ToQt(Items[static_cast<size_t>(i)]);
        if (!Same) {
            clear();
            for (const fw::Text& Item : Items) addItem(ToQt(Item));
        }
        setCurrentIndex(E->GetItemIndex());
    }

    void showPopup() override {
        if (auto* E = Editor()) E->OpenList();  // the view may refresh the items first
        Reload();
        view()->setAccessibleName(accessibleName());
        view()->setMinimumWidth(view()->sizeHintForColumn(0) + 2 * fontMetrics().averageCharWidth());
        QComboBox::showPopup();
    }

    void Open() override { showPopup(); }
    void TypeFirst(QKeyEvent* Event) override {
        TellKey(*Event);
        QComboBox::keyPressEvent(Event);
    }

protected:
    bool event(QEvent* Event) override {
        if (Event->type() == QEvent::KeyPress) {
            auto* Key = static_cast<QKeyEvent*>(Event);
            if (HandleKey(Key, false)) return true;
            if (Key->key() == Qt::Key_Delete) return OnLeave(ELeave::Empty), true;
        }
        return QComboBox::event(Event);
    }
    void wheelEvent(QWheelEvent* Event) override { Event->ignore(); }
};

}  // namespace

TCellEditorWidget::~TCellEditorWidget() = default;

void TCellEditorWidget::Step(int) {}

void TCellEditorWidget::TellKey(const QKeyEvent& Event) {
    if (auto* E = Editor()) E->KeyDown(CodeOf(Event), static_cast<int>(Event.modifiers() != 0));
}

bool TCellEditorWidget::HandleKey(QKeyEvent* Event, bool WithUpDown) {
    TellKey(*Event);
    if (!Editor()) return true;
    const auto Modifiers = Event->modifiers() & ~Qt::KeypadModifier;
    for (const TLeaveKey& K : kLeaveKeys) {
        if (K.Key != Event->key() || K.Modifiers != Modifiers || (K.UpDown && !WithUpDown)) continue;
        if (OnLeave) OnLeave(K.Way);
        return true;
    }
    return false;
}

TCellEditorWidget* MakeCellEditor(fw::TGridTableView& View, TRenderContext& Context, QWidget* Parent) {
    const fw::TCellEditor& E = *View.GetEditor();
    if (E.IsCombo()) return new TComboCellEditor(View, Parent);
    ELineButtons Buttons = E.GetKind() == fw::EEditorKind::Popup ? ELineButtons::Open : ELineButtons::None;
    if (const auto* Spin = dynamic_cast<const fw::TcxSpinEditProperties*>(E.GetProperties()))
        Buttons = Spin->ButtonsLeftAndRight ? ELineButtons::SpinAround : ELineButtons::SpinRight;
    return new TLineCellEditor(View, Context, Parent, Buttons);
}

}  // namespace ws
