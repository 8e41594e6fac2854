// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/RowStream.h"

#include <QCoreApplication>
#include <QProgressDialog>

#include "workstation/renderers/ModelRef.h"

namespace ws {

namespace {
constexpr int kRowsPerStep = 2'000;  // between two looks at the loop
constexpr int kProgressSteps = 1000;
constexpr int kBarAfterMs = 300;
}  // namespace

ERowsEnd StreamRows(fw::TGridTableView& View, int First, int64_t Count, const QString& Label, const QString& Cancel,
                    QWidget& Window, const std::function<bool(int Record)>& Take) {
    const TModelRef Ref(View);
    bool Changed = false;
    fw::TConnections Links;
    Links += View.OnRecordsChanged.Connect([&] { Changed = true; });
    Links += View.OnColumnsChanged.Connect([&] { Changed = true; });
    QProgressDialog Bar(Label, Cancel, 0, kProgressSteps, &Window);
    Bar.setWindowModality(Qt::ApplicationModal);
    Bar.setMinimumDuration(kBarAfterMs);
    Bar.setValue(0);
    for (int64_t Done = 0; Done < Count; ++Done) {
        if (!Take(static_cast<int>(First + Done))) return ERowsEnd::Stopped;
        if (Done % kRowsPerStep != 0) continue;
        Bar.setValue(static_cast<int>(kProgressSteps * Done / Count));
        QCoreApplication::processEvents();
        if (Bar.wasCanceled()) return ERowsEnd::Stopped;
        if (!Ref || Changed) return ERowsEnd::Changed;
    }
    return ERowsEnd::Done;
}

}  // namespace ws
