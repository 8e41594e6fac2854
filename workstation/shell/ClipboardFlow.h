// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include <QPointer>
#include <QWidget>

#include "framework/controls/GridTableView.h"
#include "workstation/renderers/RenderContext.h"
#include "workstation/shell/Dialogs.h"

class QMimeData;

namespace ws {

class TViewDocks;

// From how many rows on copying is asked about first, and how many bytes of text and HTML together a clipboard takes:
// other programs fetch each form whole.
struct TCopyLimits {
    int64_t AskRows = 1'000'000;
    int64_t Bytes = int64_t{1} << 30;
};

// Rows of the tables to the clipboard, and legs from there: what keys of a table and the Edit menu ask for. Many rows
// are written piece by piece while the loop runs; the user may cancel, and a table that changes meanwhile ends it.
class TClipboardFlow : public QObject {
public:
    // Say: one sentence for the status bar, resource key and arguments. Everything is borrowed and outlives this.
    using TSay = std::function<void(const fw::Text& Key, const std::vector<fw::Text>& Args)>;
    TClipboardFlow(TRenderContext& Context, TDialogs& Dialogs, TViewDocks& Docks, QWidget& Window, TSay Say);
    ~TClipboardFlow() override;

    // For the menu. The table that had the focus last, else the current view's first one.
    void CopyFocused();
    void PasteFocused();
    // The table that had the focus last, else the current view's first one; null: none.
    fw::TGridTableView* FocusedTable() const;

    void SetLimits(TCopyLimits Limits) { FLimits = Limits; }

private:
    class TRows;
    void Copy(fw::TGridTableView& View, int First, int Last);
    void CopyMany(fw::TGridTableView& View, int First, int Last);
    void Put(TRows& Rows);
    void Paste(fw::TGridTableView& View, const fw::Text& Lines);
    class TGridClipboard* FocusedRenderer(bool Editable) const;

    TRenderContext& FContext;
    TDialogs& FDialogs;
    TViewDocks& FDocks;
    QWidget& FWindow;
    TSay FSay;
    TCopyLimits FLimits;
    QPointer<QWidget> FLastFocus;  // within a view
    bool FCopying = false;
};

}  // namespace ws
