// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/core/present_view_protocol.h>

#include <QPointer>
#include <QStackedWidget>

namespace Workbench {

/// Shows the views of controllers as pages of a window, one at a time: as their delegate it presents a view
/// as a page beside the others instead of a child over the presenter's, and dismisses it to the page before
/// without closing it. So each page keeps what it shows.
///
/// @code
/// auto* pages = new PageStack(window);
/// pages->addWidget(first->getView());
/// first->setDelegate(pages);
/// second->setDelegate(pages);
/// first->presentViewController(second, FromRight);
/// second->dismissViewController(); // the first page again
/// @endcode
class PageStack : public QStackedWidget, public Vela::UiBase::PresentViewProtocol {
  Q_OBJECT

public:
  using QStackedWidget::QStackedWidget;

  /// Declines a controller without a view.
  bool presentViewController(Vela::UiBase::BaseViewController* controller,
                             Vela::UiBase::ETransitionDirection direction) override;
  bool dismissViewController() override;

private:
  void show(QWidget& page);

  QPointer<QWidget> m_before; // the page that presented
};

} // namespace Workbench
