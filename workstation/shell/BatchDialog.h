// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "workstation/shell/BatchTable.h"

namespace ws {

// The question before a batch is sent. Accepted: the ticked rows of the review are what the trader wants sent. Whatever
// fails inside closes it as rejected; Failure() says what. Borrows everything.
class TBatchDialog : public QDialog {
public:
    TBatchDialog(TBatchReview& Review, fw::TCustomDataControl& Table, TRenderContext& Context, TReasonText Text,
                 QWidget* Parent);

    void MarketMoved();  // the rows are judged anew, a moment later
    void Retranslate();
    const std::optional<std::string>& Failure() const { return FFailure; }

    QPushButton& SendButton() { return *FSend; }
    QPushButton& CancelButton() { return *FCancel; }
    TBatchView& View() { return *FView; }
    TBatchTable& Model() { return *FModel; }
    QString Banner() const { return FBanner->text(); }
    QString TotalsText() const { return FTotals->text(); }
    QString Details() const { return FDetails->text(); }

protected:
    void keyPressEvent(QKeyEvent* Event) override;

private:
    void BuildLayout();
    void Guarded(const std::function<void()>& Body);
    void Fail(const std::string& What);
    void Judge();
    void Send();
    void Update();  // everything that depends on ticks and findings
    void UpdateDetails();
    QString UntickedText() const;
    QString Totals() const;

    TBatchReview& FReview;
    TRenderContext& FContext;
    TReasonText FText;
    TBatchTable* FModel;
    TBatchView* FView;
    QLabel *FBanner, *FDetails, *FTotals;
    QPushButton *FSend, *FCancel;
    QTimer FJudgeLater;
    std::optional<std::string> FFailure;
    fw::TConnections FLinks;
};

}  // namespace ws
