// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/renderers/ControlName.h"

#include <QComboBox>

#include "workstation/renderers/ButtonLine.h"
#include "workstation/renderers/QtText.h"

namespace ws {

void NameControl(QWidget& Control, const QString& Name, const TRenderContext& Context) {
    Control.setAccessibleName(Name);
    if (qobject_cast<QComboBox*>(&Control))
        Control.setAccessibleDescription(Name);  // some platforms call a combo by what is chosen
    auto* Composite = dynamic_cast<TButtonLine*>(&Control);
    if (!Composite) return;
    Composite->Line().setAccessibleName(Name);
    const std::pair<QToolButton*, const char*> Buttons[] = {{Composite->DownButton(), "Res_StepDown"},
                                                            {Composite->UpButton(), "Res_StepUp"},
                                                            {Composite->OpenButton(), "Res_OpenChoices"}};
    for (const auto& [Button, Key] : Buttons)
        if (Button) Button->setAccessibleName(Context.Translate(Key, {FromQt(Name)}));
}

}  // namespace ws
