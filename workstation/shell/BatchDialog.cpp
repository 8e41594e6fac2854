// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/BatchDialog.h"

#include <cmath>

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include "framework/services/Formatter.h"
#include "workstation/renderers/QtText.h"

namespace ws {

namespace {

constexpr QSize kSize(960, 420);  // at scale 100
constexpr int kDetailLines = 2;
constexpr int kJudgeMilliseconds = 100;  // quotes of many symbols arrive together
constexpr int kNamedRows = 4;

QString QtyText(double Qty) { return ToQt(fw::TCustomFormatter::GetInstance().FormatValue(Qty, fw::kFormatQuantity)); }

}  // namespace

TBatchDialog::TBatchDialog(TBatchReview& Review, fw::TCustomDataControl& Table, TRenderContext& Context,
                           TReasonText Text, QWidget* Parent)
    : QDialog(Parent),
      FReview(Review),
      FContext(Context),
      FText(std::move(Text)),
      FModel(new TBatchTable(Review, Table, Context, FText, this)),
      FView(new TBatchView(*FModel, Context, this)),
      FBanner(new QLabel(this)),
      FDetails(new QLabel(this)),
      FTotals(new QLabel(this)),
      FSend(new QPushButton(this)),
      FCancel(new QPushButton(this)) {
    BuildLayout();
    FModel->OnFailure = [this](const std::string& What) { Fail(What); };
    FModel->OnTick = [this](const std::vector<int>& Rows, bool Ticked) {
        Guarded([&] {
            FReview.SetTicked(Rows, Ticked);
            Update();
        });
    };
    connect(FSend, &QPushButton::clicked, this, [this] { Send(); });
    connect(FCancel, &QPushButton::clicked, this, &QDialog::reject);
    for (const auto Key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* Shortcut = new QShortcut(QKeySequence(Qt::CTRL | Key), this);
        Shortcut->setAutoRepeat(false);
        connect(Shortcut, &QShortcut::activated, this, [this] { Send(); });
    }
    connect(FView->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { Guarded([this] { UpdateDetails(); }); });
    FJudgeLater.setSingleShot(true);
    connect(&FJudgeLater, &QTimer::timeout, this, [this] { Guarded([this] { Judge(); }); });
    FLinks += Context.OnSkinChanged.Connect([this] { Guarded([this] { Update(); }); });
    Retranslate();
    (FReview.HasWarning() || !FReview.CanSend() ? FCancel : FSend)->setFocus(Qt::TabFocusReason);
}

void TBatchDialog::BuildLayout() {
    for (QLabel* Label : {FBanner, FDetails, FTotals}) Label->setTextFormat(Qt::PlainText);
    for (QLabel* Label : {FBanner, FDetails}) Label->setWordWrap(true);
    QFont Bold = font();
    Bold.setBold(true);
    FBanner->setFont(Bold);
    FTotals->setFont(Bold);
    FDetails->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    FDetails->setMinimumHeight(kDetailLines * fontMetrics().lineSpacing());
    // Enter presses the button that has the focus, and none from elsewhere.
    for (QPushButton* Button : {FSend, FCancel}) Button->setAutoDefault(false);
    auto* Buttons = new QHBoxLayout;
    Buttons->addWidget(FTotals, 1);
    Buttons->addWidget(FSend);
    Buttons->addWidget(FCancel);
    auto* Column = new QVBoxLayout(this);
    Column->addWidget(FBanner);
    Column->addWidget(FView, 1);
    Column->addWidget(FDetails);
    Column->addLayout(Buttons);
    resize(QSize(FContext.Scaled(kSize.width()), FContext.Scaled(kSize.height()))
               .boundedTo(screen()->availableSize() * 9 / 10));
    setModal(true);
}

void TBatchDialog::Guarded(const std::function<void()>& Body) {
    try {
        Body();
    } catch (const std::exception& Error) {
        Fail(Error.what());
    } catch (...) {
        Fail({});
    }
}

// May come from the middle of drawing: closes when control is back in the loop, and sends nothing until then.
void TBatchDialog::Fail(const std::string& What) {
    if (FFailure) return;
    FFailure = What;
    FSend->setEnabled(false);
    QTimer::singleShot(0, this, [this] { reject(); });
}

void TBatchDialog::MarketMoved() {
    if (!FJudgeLater.isActive()) FJudgeLater.start(kJudgeMilliseconds);
}

void TBatchDialog::Judge() {
    FReview.Judge();
    Update();
}

// Once more with the facts of this moment: when that takes a tick away or says something new, the trader looks again.
void TBatchDialog::Send() {
    Guarded([this] {
        if (FFailure || !FReview.CanSend()) return;
        const int Ticked = FReview.Totals().Ticked;
        const auto Said = FReview.Said();
        Judge();
        const auto Now = FReview.Said();
        const bool Seen = std::includes(Said.begin(), Said.end(), Now.begin(), Now.end());
        if (FReview.Totals().Ticked == Ticked && Seen && !FFailure) accept();
    });
}

void TBatchDialog::Update() {
    FModel->Refresh();
    QStringList Notes;
    if (const auto Warning = FReview.BatchWarning()) Notes << FText(*Warning);
    if (const QString Unticked = UntickedText(); !Unticked.isEmpty()) Notes << Unticked;
    FBanner->setText(Notes.join(QLatin1Char('\n')));
    FBanner->setVisible(!Notes.isEmpty());
    QPalette Colors = palette();
    Colors.setColor(QPalette::WindowText, FContext.Color("coWarning"));
    FBanner->setPalette(Colors);
    FTotals->setText(Totals());
    if (FSend->hasFocus() && (FReview.HasWarning() || !FReview.CanSend())) FCancel->setFocus(Qt::TabFocusReason);
    FSend->setEnabled(FReview.CanSend() && !FFailure);
    UpdateDetails();
}

QString TBatchDialog::UntickedText() const {
    QStringList Names;
    int Count = 0;
    for (size_t i = 0; i < FReview.Rows().size(); ++i) {
        if (!FReview.Rows()[i].UntickedByMarket || ++Count > kNamedRows) continue;
        Names << QString::number(i + 1) + QLatin1Char(' ') + ToQt(FReview.Rows()[i].Order.Symbol);
    }
    if (Count == 0) return {};
    const fw::Text Listed = FromQt(Names.join(QStringLiteral(", ")));
    const QString Shown = Count <= kNamedRows
                              ? ToQt(Listed)
                              : FContext.Translate("Res_BatchMore", {Listed, std::to_string(Count - kNamedRows)});
    return FContext.Translate("Res_BatchUnticked", {FromQt(Shown)});
}

QString TBatchDialog::Totals() const {
    const TBatchTotals Sum = FReview.Totals();
    QStringList Parts{FContext.Translate("Res_BatchOrders", {std::to_string(Sum.Ticked), std::to_string(Sum.Rows)}),
                      FContext.Translate("Res_BatchQty", {FromQt(QtyText(Sum.BuyQty)), FromQt(QtyText(Sum.SellQty))})};
    for (const auto& [Currency, Amount] : Sum.NetPremium)
        Parts << FContext.Translate(
            Amount < 0 ? "Res_BatchPays" : "Res_BatchReceives",
            {Currency, fw::TCustomFormatter::GetInstance().FormatValue(std::abs(Amount), fw::kFormatAmount)});
    if (Sum.WithoutPremium > 0) Parts << FContext.Translate("Res_BatchNoPremium", {std::to_string(Sum.WithoutPremium)});
    return Parts.join(QStringLiteral("   ·   "));
}

// Everything about the row that the trader looks at; its cell shows the first remark only.
void TBatchDialog::UpdateDetails() {
    const int Row = FView->currentIndex().row();
    if (Row < 0 || Row >= FModel->rowCount()) return FDetails->clear();
    const TReviewRow& Shown = FReview.Rows()[static_cast<size_t>(Row)];
    QStringList Remarks;
    for (const auto& Finding : Shown.Findings) Remarks << FText(Finding.Reason);
    const QString Name = FContext.Translate("Res_BatchRow", {std::to_string(Row + 1), Shown.Order.Symbol});
    FDetails->setText(Remarks.isEmpty() ? Name
                                        : Name + QStringLiteral(":  ") + Remarks.join(QStringLiteral("   ·   ")));
}

void TBatchDialog::Retranslate() {
    Guarded([this] {
        setWindowTitle(FContext.Translate("Res_BatchTitle"));
        FView->setAccessibleName(windowTitle());
        FSend->setText(FContext.Translate("Res_BatchSend"));
        FCancel->setText(FContext.Translate("Res_ButtonCancel"));
        Update();
    });
}

// A key that is held down since before the dialog came answers nothing.
void TBatchDialog::keyPressEvent(QKeyEvent* Event) {
    if (Event->key() != Qt::Key_Return && Event->key() != Qt::Key_Enter) return QDialog::keyPressEvent(Event);
    if (Event->isAutoRepeat() || Event->modifiers() & ~Qt::KeypadModifier) return;
    if (auto* Button = qobject_cast<QPushButton*>(focusWidget())) Button->click();
}

}  // namespace ws
