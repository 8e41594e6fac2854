// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/services/MessageBoxService.h"

#include "framework/base/Log.h"

namespace ws {

void TMessageBoxService::ShowMessageText(fw::TObject*, const fw::Text& Message, int, int, int) {
    if (OnShow) return OnShow(Message);
    fw::TLog::Warning("Res_LogMessage", {Message});
}

void TMessageBoxService::ShowMessageCode(fw::TObject* Owner, const fw::Text& Code, void*, void*, void*) {
    ShowMessageText(Owner, FLanguage.Message(Code), 0, 0, 0);
}

}  // namespace ws
