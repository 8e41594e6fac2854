// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/BatchConfirmation.h"

#include "framework/base/FlagGuard.h"
#include "framework/base/Log.h"
#include "framework/services/GlobalChannelManager.h"
#include "framework/services/MessageBoxCtrl.h"
#include "framework/services/SubscribeAdapter.h"
#include "workstation/renderers/QtText.h"
#include "workstation/shell/BatchDialog.h"

namespace ws {

namespace {

// Prices of the batch's symbols come while the dialog is open.
class TSubscriptions {
public:
    explicit TSubscriptions(fw::TObject& Owner) : FOwner(Owner) {}
    // What stands when it throws ends with the object.
    void Begin(const std::set<std::string>& Symbols, const std::function<void()>& OnUpdate) {
        auto& Data = fw::TCustomSubscribeAdapter::GetInstance();
        for (const auto& Symbol : Symbols) {
            FItems.push_back(Data.GetSubItem(Symbol, fw::kPriceDataKind, 0));
            Data.Subscribe(
                FItems.back(), [OnUpdate](fw::TObject*, fw::TObject*) { OnUpdate(); }, &FOwner);
        }
    }
    ~TSubscriptions() {
        for (auto* Item : FItems) fw::TCustomSubscribeAdapter::GetInstance().Unsubscribe(Item, &FOwner);
    }

private:
    fw::TObject& FOwner;
    std::vector<fw::TCustomSubItem*> FItems;  // borrowed from the subscription service
};

// Runs Body at the end of a scope.
class TAtEnd {
public:
    explicit TAtEnd(std::function<void()> Body) : FBody(std::move(Body)) {}
    ~TAtEnd() { FBody(); }

private:
    std::function<void()> FBody;
};

}  // namespace

TBatchConfirmation::TBatchConfirmation(const TServices& Services, TRenderContext& Context, QWidget* Parent)
    : FServices(Services), FContext(Context), FParent(Parent) {
    fw::TCustomGlobalChannelManager::GetInstance().Subscribe(
        fw::kChannelBatchConfirm,
        [this](fw::TObject*, fw::TObject* Record) {
            if (auto* Request = dynamic_cast<fw::TOrderTakeActionRecord*>(Record)) Serve(*Request);
        },
        this);
}

TBatchConfirmation::~TBatchConfirmation() {
    fw::TCustomGlobalChannelManager::GetInstance().Unsubscribe(fw::kChannelBatchConfirm, this);
}

void TBatchConfirmation::Serve(fw::TOrderTakeActionRecord& Request) {
    const std::unique_ptr<fw::TCustomDataControl> Table(std::exchange(Request.DataControl, nullptr));
    Request.Result = false;
    if (!Table) return;
    if (FOpen) return fw::TLog::Warning("Res_BatchIsOpen");
    const fw::TFlagGuard Open(FOpen, fw::EGuardEnd::Clear);
    std::optional<std::string> Failure;
    try {
        Request.Result = Ask(*Table);
        return;
    } catch (const std::exception& Error) {
        Failure = Error.what();
    } catch (...) {
        Failure = "";
    }
    FServices.Actions.Confirmed({});
    fw::TLog::Error("Res_BatchFailed", {*Failure});
    fw::TCustomMessageBoxCtrl::GetInstance().ShowMessageText(
        nullptr, FServices.Language.Resource("Res_BatchFailed", {*Failure}), 0, 0, 0);
}

bool TBatchConfirmation::Ask(fw::TCustomDataControl& Table) {
    const auto Text = [this](const TReason& Reason) {
        return ToQt(FServices.Language.Resource(Reason.Key, Reason.Args));
    };
    TBatchReview Review(
        Table, [this](int64_t LineId) { return FServices.Orders.FindOrder(LineId); }, FServices.Facts,
        FServices.Actions.LastSent());
    FServices.Orders.OnRemark = [&](const fw::TCustomClientOrder& Order) {
        const auto Remark = Review.RemarkOf(Order.GetLineId());
        return Remark ? FServices.Language.Resource(Remark->Key, Remark->Args) : fw::Text();
    };
    const TAtEnd NoRemarks([this] { FServices.Orders.OnRemark = nullptr; });
    TBatchDialog Dialog(Review, Table, FContext, Text, FParent);
    FDialog = &Dialog;
    const TAtEnd NoDialog([this] { FDialog = nullptr; });
    TSubscriptions Prices(*this);
    Prices.Begin(Review.Symbols(), [&Dialog] { Dialog.MarketMoved(); });
    const bool Accepted = Dialog.exec() == QDialog::Accepted;
    if (Dialog.Failure()) throw std::runtime_error(*Dialog.Failure());
    FServices.Actions.Confirmed(Accepted ? Review.Rows() : std::vector<TReviewRow>());
    return Accepted;
}

void TBatchConfirmation::Retranslate() {
    if (FDialog) FDialog->Retranslate();
}

}  // namespace ws
