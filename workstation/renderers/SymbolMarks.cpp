// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/SymbolMarks.h"

#include "framework/base/Errors.h"
#include "framework/services/SubscribeAdapter.h"

namespace ws {

ESymbolMark SymbolMark(const fw::Text& Symbol) {
    const fw::Text Trimmed = fw::Trim(Symbol);
    if (Trimmed.empty()) return ESymbolMark::None;
    try {
        auto* Item = fw::TCustomSubscribeAdapter::GetInstance().GetSubItem(Trimmed, fw::kPriceDataKind, 1);
        if (!Item || Item->GetState() == fw::kItemReady) return ESymbolMark::None;
        return Item->GetState() == fw::kItemNoData ? ESymbolMark::NoData : ESymbolMark::Waiting;
    } catch (const fw::EServiceMissing&) {
        return ESymbolMark::None;
    }
}

QString SymbolMarkHint(ESymbolMark Mark, const fw::Text& Symbol, const TRenderContext& Context) {
    if (Mark == ESymbolMark::None) return {};
    return Context.Translate(Mark == ESymbolMark::NoData ? "Res_SymbolNoData" : "Res_SymbolWaiting",
                             {fw::Trim(Symbol)});
}

}  // namespace ws
