// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "workstation/renderers/RenderContext.h"
#include "workstation/shell/ClipboardFlow.h"
#include "workstation/shell/Commands.h"
#include "workstation/shell/Dialogs.h"
#include "workstation/shell/ViewDocks.h"

namespace ws {

// The chart of the current view as a picture, its tables as CSV, and all of it on paper. Pictures and paper have the
// colours of the light skin, whatever the screen has. A file is written whole or not at all. Borrows everything.
class TExportFlow {
public:
    struct TPlaces {
        TRenderContext& Context;
        TDialogs& Dialogs;
        TViewDocks& Docks;
        TClipboardFlow& Clipboard;  // knows the table that is meant
        QWidget& Window;
    };
    TExportFlow(TPlaces Places, TCommands& Commands, TClipboardFlow::TSay Say);

    void ExportChart();
    void ExportTable();
    void Print();

private:
    TViewDock* DockWithChart() const;
    bool WriteTable(fw::TGridTableView& View, const QString& File);
    void Failed(const QString& File, const QString& Reason);
    QString AskFile(const char* TitleKey, const char* NameKey, const char* FilterKey);

    TPlaces FPlaces;
    TClipboardFlow::TSay FSay;
};

}  // namespace ws
