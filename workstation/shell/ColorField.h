// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workstation/shell/PreferenceFields.h"

class QLineEdit;
class QMenu;
class QPushButton;
class QToolButton;

namespace ws {

// A colour: typed as #RRGGBB, chosen from the skin's own colours, or given back to the skin.
class TColorField : public TPreferenceField {
public:
    TColorField(const TPreference& Preference, TPreferencesVisit& Visit, const TRenderContext& Context);

    QWidget& Editor() override;
    void Reload() override;
    void Retranslate() override;
    QPushButton& SkinsOwnButton() { return *FSkinsOwn; }

private:
    void Take();
    void FillMenu();

    QLineEdit* FLine;
    QToolButton* FChoose;  // shows the colour
    QMenu* FMenu;
    QPushButton* FSkinsOwn;
};

}  // namespace ws
