// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "workstation/services/Workstation.h"
#include "workstation/shell/Dialogs.h"

namespace ws {

// File > Import: reads the file with a progress bar, asks what the file leaves open (order of the date, bad lines), and
// tells what was done. True when the chain was imported.
class TImportFlow {
public:
    TImportFlow(TWorkstation& Workstation, TRenderContext& Context, TDialogs& Dialogs, QWidget* Parent);
    bool Run(const QString& File);

private:
    TImportReport Read(const QString& File, bool SkipBadLines);
    bool AskOrder(const TMarketMessage& Reason);
    bool AskSkip(const QString& File, const TImportReport& Report);
    QString Sentence(const std::string& Key, const std::vector<std::string>& Args) const;

    TWorkstation& FWorkstation;
    TRenderContext& FContext;
    TDialogs& FDialogs;
    QWidget* FParent;
    EDateOrder FOrder = EDateOrder::Unstated;
};

}  // namespace ws
