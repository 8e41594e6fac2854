// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include <QLabel>
#include <QWidget>

#include "workstation/renderers/RenderContext.h"
#include "workstation/services/PreferencesVisit.h"

class QVBoxLayout;

namespace ws {

// One preference on a page: its editor, a sentence about it, and below that why what was typed cannot be. What is
// chosen holds at once. Borrows the visit and the context, which outlive it.
class TPreferenceField : public QWidget {
public:
    TPreferenceField(const TPreference& Preference, TPreferencesVisit& Visit, const TRenderContext& Context,
                     QWidget* Parent);

    const TPreference& Preference() const { return FPreference; }
    virtual QWidget& Editor() = 0;                      // takes the focus and bears the name
    virtual bool NamesItself() const { return false; }  // needs no label before it
    virtual void Reload() = 0;                          // shows what holds
    virtual void Retranslate();
    QString Refusal() const { return FRefusal->text(); }

protected:
    void Place(QWidget& Widget);  // of the derived class, above the sentences
    QString Caption() const;
    void Guarded(const std::function<void()>& Change);  // a store that cannot be written is told
    void Choose(const std::string& Value);
    void Refuse(const QString& Reason);  // empty: nothing is wrong

    const TPreference& FPreference;
    TPreferencesVisit& FVisit;
    const TRenderContext& FContext;

private:
    QVBoxLayout* FBox;
    QLabel* FHint;
    QLabel* FRefusal;
};

std::unique_ptr<TPreferenceField> MakePreferenceField(const TPreference& Preference, TPreferencesVisit& Visit,
                                                      const TRenderContext& Context);

}  // namespace ws
