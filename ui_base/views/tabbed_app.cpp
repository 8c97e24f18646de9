// SPDX-License-Identifier: MIT
#include "tabbed_app.h"

#include "base_view_controller.h"

#include <QPointer>

#include <utility>

namespace Vela::UiBase {

class TabbedAppPrivate {
public:
  QPointer<BaseViewController> rootViewController;
};

TabbedApp::TabbedApp() : d(std::make_unique<TabbedAppPrivate>()) {}

TabbedApp::~TabbedApp() { setRootViewController(nullptr); }

BaseViewController* TabbedApp::getVC() const { return d->rootViewController; }

void TabbedApp::setRootViewController(BaseViewController* controller) {
  if (d->rootViewController != controller)
    delete std::exchange(d->rootViewController, controller).data();
}

bool TabbedApp::Init() { return true; }

bool TabbedApp::Update() { return false; }

void TabbedApp::Reset() {}

} // namespace Vela::UiBase
