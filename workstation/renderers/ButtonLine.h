// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QLineEdit>
#include <QToolButton>
#include <QWidget>

namespace ws {

enum class ELineButtons { None, SpinAround, SpinRight, Open };

// A line of text with the buttons of its kind: one that counts down to its left and one that counts up to its right,
// both at the right edge, or one that opens a list. Knows no value: it tells what the user does.
class TButtonLine : public QWidget {
public:
    TButtonLine(QWidget* Parent, ELineButtons Buttons);

    QLineEdit& Line() { return *FLine; }
    QToolButton* DownButton() { return FDown; }  // null where the kind has none
    QToolButton* UpButton() { return FUp; }
    QToolButton* OpenButton() { return FOpen; }

    // Room for that many characters of the line's font at least.
    void SetLeastCharacters(int Count);
    // Shows a text unless it stands there already; the caret stays where it was.
    void ShowText(const QString& Text);

    std::function<void(const QString& Text)> OnTyped;
    std::function<void(int Steps)> OnStep;  // buttons, Up, Down, Page Up, Page Down, and the wheel while focused
    std::function<void()> OnOpen;
    // Every key before anything else sees it; true: the key is done with.
    std::function<bool(QKeyEvent* Event)> OnKey;

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;
    void wheelEvent(QWheelEvent* Event) override;
    void changeEvent(QEvent* Event) override;

private:
    bool Step(int Steps);
    void Measure();

    QLineEdit* FLine;
    QToolButton* FDown = nullptr;
    QToolButton* FUp = nullptr;
    QToolButton* FOpen = nullptr;
    int FLeastCharacters = 0;
    int FWheelRest = 0;  // part of a wheel notch, eighths of a degree
};

// Width of a button of a line, in pixels; cells leave as much room for theirs.
int ButtonWidth(const QFontMetrics& Metrics);

}  // namespace ws
