// SPDX-License-Identifier: Apache-2.0
#include "framework/data/GridDataSource.h"

namespace fw {

TCustomGridDataSource::TCustomGridDataSource(const TFactory& Factory) : FDataControl(Factory()) {}

// Views forget the source while its data control still stands.
TCustomGridDataSource::~TCustomGridDataSource() { OnDestroyed(); }

}  // namespace fw
