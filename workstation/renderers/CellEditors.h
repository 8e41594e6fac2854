// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QPointer>
#include <QWidget>

#include "framework/controls/GridTableView.h"
#include "workstation/renderers/ModelRef.h"
#include "workstation/renderers/RenderContext.h"

class QKeyEvent;

namespace ws {

// What the user wants after the editor of a cell. Empty and FillDown replace what is typed.
enum class ELeave { Cancel, Next, Previous, Up, Down, InputRow, Empty, FillDown };

// Codes of keys, as the framework counts them, that have no letter; letters are their capital ASCII code.
inline constexpr int kCodeDelete = 46;
inline constexpr int kCodeComposed = 229;  // what an input method writes

// What cell editors have in common. Each looks at the one editor that is open in the view, shows it and types into it;
// it holds no value. The widget is destroyed when the view has closed its editor.
class TCellEditorWidget {
public:
    explicit TCellEditorWidget(fw::TGridTableView& View) : FView(View) {}
    virtual ~TCellEditorWidget();

    virtual QWidget* Widget() = 0;
    virtual QWidget* FocusWidget() = 0;
    virtual void Reload() = 0;                     // shows the model's text and items
    virtual void Step(int Steps);                  // a button of the cell was pressed; nothing where there is none
    virtual void Open() {}                         // drops the list or popup down
    virtual void TypeFirst(QKeyEvent* Event) = 0;  // the key that opened the editor
    virtual void ShowReason(const QString&) {}     // why the editor cannot be left; empty: it can

    std::function<void(ELeave Way)> OnLeave;

protected:
    fw::TCellEditor* Editor() const { return FView ? FView->GetEditor() : nullptr; }
    void TellKey(const QKeyEvent& Event);  // the model hears of each key before it does anything
    // Tells the model of a key; true when the key leaves the editor. WithUpDown: Up and Down leave, too.
    bool HandleKey(QKeyEvent* Event, bool WithUpDown);

    TModelRef<fw::TGridTableView> FView;
};

// The editor widget for the kind of the view's open editor. Parent owns the widget.
TCellEditorWidget* MakeCellEditor(fw::TGridTableView& View, TRenderContext& Context, QWidget* Parent);

}  // namespace ws
