// SPDX-License-Identifier: MIT
#include "info_view.h"

namespace Vela::UiBase {

InfoView::InfoView(QWidget* parent) : QWidget(parent) {}

InfoView::~InfoView() = default;

} // namespace Vela::UiBase
