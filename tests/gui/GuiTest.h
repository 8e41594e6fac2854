// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "tests/gui/TestFrame.h"
#include "tests/support/FakeHost.h"
#include "workstation/renderers/FrameRenderer.h"
#include "workstation/renderers/GridRenderer.h"
#include "workstation/renderers/QtText.h"

namespace gui {

// The form on a window of the offscreen platform, as a trader sees it.
class GuiTest : public testing::Test {
protected:
    GuiTest() {
        Context.SetSkin("Light");
        Window = std::make_unique<ws::TFrameRenderer>(Frame, Context, nullptr);
        Window->resize(1000, 700);
        Window->show();
        Window->activateWindow();
        QTest::qWait(1);
    }

    template <class T>
    T* Find() const {
        for (QWidget* Each : Window->findChildren<QWidget*>())
            if (auto* Found = dynamic_cast<T*>(Each)) return Found;
        return nullptr;
    }

    ws::TGridRenderer& GridWidget() const { return *Find<ws::TGridRenderer>(); }
    void ClickCell(int Record, int Tag) {
        QTest::mouseClick(GridWidget().viewport(), Qt::LeftButton, {},
                          GridWidget().CellRect(Record, Frame.ColumnOf(Tag)).center());
    }
    QWidget* EditorFocus() const {
        return GridWidget().GetEditorWidget() ? GridWidget().GetEditorWidget()->FocusWidget() : nullptr;
    }
    void PressInEditor(Qt::Key Key, Qt::KeyboardModifiers Modifiers = {}) {
        if (!EditorFocus()) throw std::runtime_error("no editor is open");
        QTest::keyClick(EditorFocus(), Key, Modifiers);
    }
    void TypeIntoEditor(const char* Text) {
        if (!EditorFocus()) throw std::runtime_error("no editor is open");
        QTest::keyClicks(EditorFocus(), QString::fromUtf8(Text));
    }

    support::TFakeHost Host;
    ws::TRenderContext Context;
    TTestFrame Frame;
    std::unique_ptr<ws::TFrameRenderer> Window;
};

}  // namespace gui
