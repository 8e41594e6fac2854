// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/StatusLine.h"

#include <QStyle>
#include <QTimer>

namespace ws {

namespace {
constexpr int kSaidMilliseconds = 6000;
constexpr int kProblemLetters = 110;
}  // namespace

TStatusLine::TStatusLine(TMessageList& Messages, TRenderContext& Context, QWidget* Parent)
    : QStatusBar(Parent),
      FMessages(Messages),
      FContext(Context),
      FHint(new QLabel(this)),
      FProblem(new QToolButton(this)) {
    FHint->setTextFormat(Qt::PlainText);
    FHint->setMinimumWidth(1);  // a long sentence is cut, the window keeps its width
    const auto Measure = [this] { FHint->setContentsMargins(FContext.Scaled(6), 0, FContext.Scaled(6), 0); };
    Measure();
    FProblem->setAutoRaise(true);
    FProblem->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addWidget(FHint, 1);
    addPermanentWidget(FProblem);
    setSizeGripEnabled(false);
    connect(FProblem, &QToolButton::clicked, this, [this] {
        if (OnProblemClicked) OnProblemClicked();
    });
    FLinks += Messages.OnProblem.Connect([this] { UpdateProblem(); });
    FLinks += Context.OnSkinChanged.Connect([this] { UpdateProblem(); });
    FLinks += Context.OnMetricsChanged.Connect(Measure);
    Retranslate();
}

void TStatusLine::ShowHint(const char* Key) {
    FHintKey = Key;
    UpdateHint();
}

void TStatusLine::ShowProgress(const QString& Text) {
    if (Text == FProgress) return;
    FProgress = Text;
    UpdateHint();
}

void TStatusLine::UpdateHint() {
    const QString Text = FSaid                  ? FSaid()
                         : !FProgress.isEmpty() ? FProgress
                         : FHintKey             ? FContext.Translate(FHintKey)
                                                : QString();
    if (FHint->text() != Text) FHint->setText(Text), FHint->setToolTip(Text);
}

void TStatusLine::Say(TSentence Sentence) {
    FSaid = std::move(Sentence);
    QFont Bold = font();
    Bold.setBold(true);
    FHint->setFont(Bold);
    ShowHint(FHintKey);
    QTimer::singleShot(kSaidMilliseconds, this, [this, Round = ++FSaidRound] {
        if (Round != FSaidRound) return;
        FSaid = nullptr;
        FHint->setFont(font());
        ShowHint(FHintKey);
    });
}

void TStatusLine::Retranslate() {
    ShowHint(FHintKey);
    UpdateProblem();
}

void TStatusLine::UpdateProblem() {
    const QString Text = FMessages.LastProblem().section(QLatin1Char('\n'), 0, 0);
    const bool Error = FMessages.LastProblemLevel() == fw::ELogLevel::Error;
    FProblem->setVisible(!Text.isEmpty());
    FProblem->setText(Text.size() > kProblemLetters ? Text.left(kProblemLetters) + QChar(0x2026) : Text);
    FProblem->setToolTip(FMessages.LastProblem());
    FProblem->setIcon(style()->standardIcon(Error ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxWarning));
    QPalette Colors = palette();
    Colors.setColor(QPalette::ButtonText, FContext.Color(Error ? "coError" : "coWarning"));
    FProblem->setPalette(Colors);
    QFont Font;
    Font.setBold(FMessages.UnseenProblems() > 0);
    FProblem->setFont(Font);
}

}  // namespace ws
