// SPDX-License-Identifier: GPL-3.0-or-later
#include "workstation/shell/PreferenceFields.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "framework/base/NumberFormat.h"
#include "framework/base/Numbers.h"
#include "workstation/renderers/QtText.h"
#include "workstation/shell/ColorField.h"

namespace ws {

namespace {

constexpr int kAmountDecimals = 6;
constexpr int kAmountCharacters = 19;

// A wheel that scrolls the page changes nothing on it.
class TPageCombo : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void wheelEvent(QWheelEvent* Event) override { Event->ignore(); }
};

class TChoiceField : public TPreferenceField {
public:
    TChoiceField(const TPreference& Preference, TPreferencesVisit& Visit, const TRenderContext& Context)
        : TPreferenceField(Preference, Visit, Context, nullptr), FCombo(new TPageCombo(this)) {
        FCombo->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        Place(*FCombo);
        connect(FCombo, &QComboBox::activated, this,
                [this](int Index) { Choose(FPreference.Values[static_cast<size_t>(Index)].Text); });
        Retranslate();
    }
    QWidget& Editor() override { return *FCombo; }
    void Reload() override {
        const QSignalBlocker Silent(FCombo);
        const std::string Now = FVisit.Value(FPreference);
        for (size_t i = 0; i < FPreference.Values.size(); ++i)
            if (FPreference.Values[i].Text == Now) FCombo->setCurrentIndex(static_cast<int>(i));
    }
    void Retranslate() override {
        TPreferenceField::Retranslate();
        const QSignalBlocker Silent(FCombo);
        FCombo->clear();
        for (const TPreferenceValue& Each : FPreference.Values) FCombo->addItem(Shown(Each));
        Reload();
    }

private:
    QString Shown(const TPreferenceValue& Value) const {
        if (!Value.CaptionKey.empty()) return FContext.Translate(Value.CaptionKey.c_str());
        const auto Format = fw::FindNumberFormat(Value.Text);
        if (!Format) return ToQt(Value.Text);
        return ToQt("12" + Format->Group + "345" + Format->Decimal + "67  (" + Value.Text + ")");
    }
    QComboBox* FCombo;
};

class TFlagField : public TPreferenceField {
public:
    TFlagField(const TPreference& Preference, TPreferencesVisit& Visit, const TRenderContext& Context)
        : TPreferenceField(Preference, Visit, Context, nullptr), FBox(new QCheckBox(this)) {
        Place(*FBox);
        connect(FBox, &QCheckBox::clicked, this, [this](bool On) { Choose(On ? "1" : "0"); });
        Retranslate();
    }
    QWidget& Editor() override { return *FBox; }
    bool NamesItself() const override { return true; }
    void Reload() override { FBox->setChecked(FVisit.Value(FPreference) == "1"); }
    void Retranslate() override {
        TPreferenceField::Retranslate();
        FBox->setText(Caption());
        Reload();
    }

private:
    QCheckBox* FBox;
};

class TAmountField : public TPreferenceField {
public:
    TAmountField(const TPreference& Preference, TPreferencesVisit& Visit, const TRenderContext& Context)
        : TPreferenceField(Preference, Visit, Context, nullptr), FLine(new QLineEdit(this)) {
        FLine->setAlignment(Qt::AlignRight);
        Place(*FLine);
        connect(FLine, &QLineEdit::editingFinished, this, [this] { Take(); });
        Retranslate();
    }
    QWidget& Editor() override { return *FLine; }
    void Reload() override {
        FLine->setFixedWidth(FLine->fontMetrics().averageCharWidth() * kAmountCharacters);
        if (FLine->isModified() && !Refusal().isEmpty()) return;  // what is wrong is there to be mended
        FLine->setText(Shown());
        Refuse({});
    }
    void Retranslate() override {
        TPreferenceField::Retranslate();
        FLine->setToolTip(FContext.Translate("Res_PreferenceReset", {Written(FVisit.Shipped(FPreference))}));
        Reload();
        if (!Refusal().isEmpty()) Take();
    }

private:
    static fw::Text Written(const std::string& Value) {
        return fw::FormatNumber(fw::TextToFloatDef(Value, 0.0), kAmountDecimals, true);
    }
    QString Shown() const { return ToQt(Written(FVisit.Value(FPreference))); }

    // An empty line is the number that ships.
    void Take() {
        const QString Typed = FLine->text().trimmed();
        if (Typed == Shown()) return Refuse({});
        if (Typed.isEmpty()) {
            Guarded([this] { FVisit.Reset(FPreference); });
            FLine->setModified(false);
            return Reload();
        }
        const auto Read = fw::ReadNumberText(
            FromQt(Typed), [](double Value) { return fw::FormatNumber(Value, kAmountDecimals, true); });
        if (Read.Kind == fw::ENumberText::Ambiguous)
            return Refuse(FContext.Translate("Res_PreferenceAmbiguous", {FromQt(Typed)}));
        if (Read.Kind != fw::ENumberText::Number || Read.Value < 0)
            return Refuse(FContext.Translate("Res_PreferenceNotAmount", {FromQt(Typed)}));
        Refuse({});
        Choose(fw::FloatToShortestText(Read.Value));
    }
    QLineEdit* FLine;
};

}  // namespace

TPreferenceField::TPreferenceField(const TPreference& Preference, TPreferencesVisit& Visit,
                                   const TRenderContext& Context, QWidget* Parent)
    : QWidget(Parent),
      FPreference(Preference),
      FVisit(Visit),
      FContext(Context),
      FBox(new QVBoxLayout(this)),
      FHint(new QLabel(this)),
      FRefusal(new QLabel(this)) {
    FBox->setContentsMargins(0, 0, 0, 0);
    FBox->setSpacing(2);
    for (QLabel* Each : {FHint, FRefusal}) {
        Each->setTextFormat(Qt::PlainText);
        Each->setWordWrap(true);
        FBox->addWidget(Each);
    }
    FHint->setForegroundRole(QPalette::PlaceholderText);
    FRefusal->setForegroundRole(QPalette::BrightText);  // the skin's colour of errors
    FRefusal->hide();
    setObjectName(ToQt(Preference.Key));
}

void TPreferenceField::Place(QWidget& Widget) { FBox->insertWidget(0, &Widget); }

QString TPreferenceField::Caption() const { return FContext.Translate(FPreference.CaptionKey.c_str()); }

void TPreferenceField::Retranslate() {
    FHint->setText(FPreference.HintKey.empty() ? QString() : FContext.Translate(FPreference.HintKey.c_str()));
    FHint->setVisible(!FHint->text().isEmpty());
    Editor().setAccessibleName(Caption());
    Editor().setAccessibleDescription(FHint->text());
}

void TPreferenceField::Guarded(const std::function<void()>& Change) {
    try {
        Change();
    } catch (const EStoreError& Error) {
        Refuse(FContext.Translate(Error.Key().c_str(), Error.Args()));
    }
}

void TPreferenceField::Choose(const std::string& Value) {
    Guarded([&] { FVisit.Choose(FPreference, Value); });
}

void TPreferenceField::Refuse(const QString& Reason) {
    FRefusal->setText(Reason);
    FRefusal->setVisible(!Reason.isEmpty());
    Editor().setAccessibleDescription(Reason.isEmpty() ? FHint->text() : Reason);
}

std::unique_ptr<TPreferenceField> MakePreferenceField(const TPreference& Preference, TPreferencesVisit& Visit,
                                                      const TRenderContext& Context) {
    switch (Preference.Kind) {
        case EPreferenceKind::Choice: return std::make_unique<TChoiceField>(Preference, Visit, Context);
        case EPreferenceKind::Flag: return std::make_unique<TFlagField>(Preference, Visit, Context);
        case EPreferenceKind::Amount: return std::make_unique<TAmountField>(Preference, Visit, Context);
        case EPreferenceKind::Color: break;
    }
    return std::make_unique<TColorField>(Preference, Visit, Context);
}

}  // namespace ws
