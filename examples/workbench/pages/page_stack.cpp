// SPDX-License-Identifier: MIT
#include "page_stack.h"

#include <ui_base/views/base_view.h>
#include <ui_base/views/base_view_controller.h>

namespace Workbench {

using namespace Vela::UiBase;

bool PageStack::presentViewController(BaseViewController* controller, ETransitionDirection) {
  BaseView* const view = controller ? controller->getView() : nullptr;
  if (!view)
    return false;
  if (view == currentWidget())
    return true;
  m_before = currentWidget();
  if (indexOf(view) < 0)
    addWidget(view);
  show(*view);
  return true;
}

bool PageStack::dismissViewController() {
  if (m_before && indexOf(m_before) >= 0)
    show(*m_before);
  m_before = nullptr;
  return true;
}

void PageStack::show(QWidget& page) {
  setCurrentWidget(&page);
  page.setFocus();
}

} // namespace Workbench
