// SPDX-License-Identifier: Apache-2.0
#include "framework/controls/EditorProperties.h"

namespace fw {

TcxEditProperties::TcxEditProperties(EEditorKind Kind) : FKind(Kind) {}
TcxEditProperties::~TcxEditProperties() = default;

TcxTextEditProperties::TcxTextEditProperties() : TcxEditProperties(EEditorKind::Plain) {}
TcxTextEditProperties::~TcxTextEditProperties() = default;

TcxSpinEditProperties::TcxSpinEditProperties() : TcxEditProperties(EEditorKind::Spin) {}
TcxSpinEditProperties::~TcxSpinEditProperties() = default;

TcxComboBoxProperties::TcxComboBoxProperties() : TcxEditProperties(EEditorKind::Combo) {}
TcxComboBoxProperties::~TcxComboBoxProperties() = default;

TcxPopupEditProperties::TcxPopupEditProperties() : TcxEditProperties(EEditorKind::Popup) {}
TcxPopupEditProperties::~TcxPopupEditProperties() = default;

}  // namespace fw
