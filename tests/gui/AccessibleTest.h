// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAccessible>
#include <QWidget>

#include <algorithm>
#include <vector>

#include "workstation/renderers/AccessibleTable.h"

namespace gui {

// Reads as a screen reader does, and hears what the tables tell.
class TScreenReader {
public:
    struct THeard {
        QAccessible::Event Event;
        QAccessible::Role Role;
        QString Name;
    };

    std::vector<THeard> Heard;

    bool HasHeard(QAccessible::Event Event, const QString& Name = {}) const {
        return std::any_of(Heard.begin(), Heard.end(),
                           [&](const THeard& E) { return E.Event == Event && (Name.isNull() || E.Name == Name); });
    }
    static QAccessibleInterface& Of(QObject& Object) { return *QAccessible::queryAccessibleInterface(&Object); }
    static QString NameOf(QObject& Object) { return Of(Object).text(QAccessible::Name); }
    // What a control is for. A combo is called by what is chosen on some platforms; its caption is its description
    // then.
    static QString CaptionOf(QObject& Object) {
        const bool IsCombo = Of(Object).role() == QAccessible::ComboBox;
        return Of(Object).text(IsCombo ? QAccessible::Description : QAccessible::Name);
    }
    // The nth head of a row among the children of a table of the toolkit's; null: there is none.
    static QAccessibleInterface* RowHead(QObject& Table, int Row) {
        QAccessibleInterface& From = Of(Table);
        for (int i = 0; i < From.childCount(); ++i)
            if (From.child(i) && From.child(i)->role() == QAccessible::RowHeader && Row-- == 0) return From.child(i);
        return nullptr;
    }
    static QAccessibleTableInterface& TableOf(QObject& Object) { return *Of(Object).tableInterface(); }

private:
    fw::TConnection FLink = ws::AccessibleEvents().Connect([this](QAccessibleEvent& Event) {
        QAccessibleInterface* From = Event.accessibleInterface();
        const bool Is = From && From->isValid();
        Heard.push_back(
            {Event.type(), Is ? From->role() : QAccessible::NoRole, Is ? From->text(QAccessible::Name) : QString()});
    });
};

}  // namespace gui
