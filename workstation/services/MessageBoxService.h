// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/services/MessageBoxCtrl.h"
#include "workstation/services/LanguageService.h"

namespace ws {

// Messages that the user must read. Without a screen (OnShow empty) they go to the log.
class TMessageBoxService : public fw::TCustomMessageBoxCtrl {
public:
    explicit TMessageBoxService(const TLanguageService& Language) : FLanguage(Language) {}

    void ShowMessageText(fw::TObject* Owner, const fw::Text& Message, int Kind, int Buttons, int Default) override;
    void ShowMessageCode(fw::TObject* Owner, const fw::Text& Code, void* Reserved1, void* Reserved2,
                         void* Reserved3) override;

    std::function<void(const fw::Text& Message)> OnShow;

private:
    const TLanguageService& FLanguage;  // borrowed
};

}  // namespace ws
