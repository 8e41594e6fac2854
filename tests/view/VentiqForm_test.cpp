// SPDX-License-Identifier: Apache-2.0
#include "view/VentiqForm.h"

#include <gtest/gtest.h>

#include <set>

namespace ventiq {
namespace {

void Collect(const TLayoutNode& Node, std::set<const TControl*>& Controls) {
    if (const auto* Group = Node.AsGroup()) {
        for (const auto* Child : Group->Nodes()) Collect(*Child, Controls);
        return;
    }
    const auto* Control = dynamic_cast<const TLayoutItem&>(Node).GetControl();
    EXPECT_TRUE(!Control || Controls.insert(Control).second);
}

TEST(Form, ShowsEveryControlOnce) {
    TVentiqForm Form;
    std::set<const TControl*> Shown;
    Collect(Form.RootGroup, Shown);
    EXPECT_EQ(Shown, (std::set<const TControl*>{&Form.cmbExchange, &Form.cmbSeries, &Form.cmbMonth, &Form.edtAccount,
                                                &Form.btnLoad, &Form.PositionGrid, &Form.edtDown, &Form.edtUp,
                                                &Form.edtInterval, &Form.btnCalc, &Form.btnClear, &Form.btnSubmit,
                                                &Form.DataChart, &Form.DetailGrid}));
}

TEST(Form, NamesEveryControlOfTheForm) {
    TFocusScope Controls;
    TVentiqForm Form;
    Form.Attach(Controls);
    const std::pair<const char*, TControl*> Names[] = {
        {"cmbExchange", &Form.cmbExchange},
        {"cmbSeries", &Form.cmbSeries},
        {"cmbMonth", &Form.cmbMonth},
        {"edtAccount", &Form.edtAccount},
        {"btnLoad", &Form.btnLoad},
        {"btnCalc", &Form.btnCalc},
        {"btnClear", &Form.btnClear},
        {"btnSubmit", &Form.btnSubmit},
        {"edtDown", &Form.edtDown},
        {"edtUp", &Form.edtUp},
        {"edtInterval", &Form.edtInterval},
        {"PositionGridView", &Form.PositionGridView},
        {"DetailGridView", &Form.DetailGridView},
        {"DataChart", &Form.DataChart},
        {"liExchange", &Form.liExchange},
        {"PositionGroup", &Form.PositionGroup},
        {"liDetailGrid", &Form.liDetailGrid},
    };
    for (const auto& [Name, Control] : Names) EXPECT_EQ(Controls.Find(Name), Control) << Name;
    for (const auto* Control : Controls.Controls()) EXPECT_FALSE(Control->GetName().empty());
}

TEST(Form, CarriesOneImageForEachFaceOfTheCaptionButtons) {
    TVentiqForm Form;
    ASSERT_EQ(Form.CaptionImages.GetCount(), 4);
    std::set<Text> Names;
    for (int i = 0; i < 4; ++i) Names.insert(Form.CaptionImages.GetIconName(i));
    EXPECT_EQ(Names.size(), 4u);
}

TEST(Form, TheAccountEditorWaitsForTheHost) {
    TVentiqForm Form;
    EXPECT_FALSE(Form.edtAccount.IsEnabled());
}

}  // namespace
}  // namespace ventiq
