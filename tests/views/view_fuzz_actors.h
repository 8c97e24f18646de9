// SPDX-License-Identifier: MIT
#pragma once

#include "view_fuzz.h"

namespace Vela::Test {

/// The one that runs.
inline ViewFuzz* fuzz = nullptr;

class FuzzView : public UiBase::BaseView {
public:
  FuzzView(QWidget* parent, Qt::CursorShape own, int itsNumber)
      : UiBase::BaseView(parent), ownCursor(own), number(itsNumber), editor(new QLineEdit(this)) {
    setCursor(own);
    editor->setGeometry(0, 0, 60, 20);
    editor->setContextMenuPolicy(Qt::NoContextMenu); // which would take all input
  }
  ~FuzzView() override { fuzz->forget(this); }

  const Qt::CursorShape ownCursor;
  const int number;        // of its first controller
  QLineEdit* const editor; // a child that is no view

protected:
  bool event(QEvent* event) override {
    const bool mayDie = event->isInputEvent() && event->type() != QEvent::Enter;
    if (mayDie || event->type() == QEvent::Close)
      return UiBase::BaseView::event(event);
    const QScopedValueRollback walk(fuzz->events, fuzz->events + 1);
    return UiBase::BaseView::event(event);
  }
};

class FuzzController : public UiBase::CmdsViewController {
public:
  FuzzController(UiBase::BaseView* view, int itsNumber)
      : UiBase::CmdsViewController(view), number(itsNumber) {}

  const int number;

  void viewDidLoad() override {
    fuzz->note(QStringLiteral("load"), this);
    fuzz->never(isLoaded(), "loaded twice");
    around([this] { UiBase::CmdsViewController::viewDidLoad(); });
  }
  void viewWillAppear() override {
    hear(Appeared);
    around([this] { UiBase::CmdsViewController::viewWillAppear(); });
  }
  void viewWillDisappear() override {
    hear(Disappeared);
    around([this] { UiBase::CmdsViewController::viewWillDisappear(); });
  }
  bool viewWillClose() override {
    if (fuzz->refuses())
      return false;
    bool may = true;
    around([&] { may = UiBase::CmdsViewController::viewWillClose(); });
    return may;
  }
  bool mousePress(QMouseEvent* event) override {
    ++presses;
    return input([=, this] { return UiBase::CmdsViewController::mousePress(event); });
  }
  bool mouseMove(QMouseEvent* event) override {
    const QPointer<UiBase::BaseViewController> self(this);
    const bool taken = input([=, this] { return UiBase::CmdsViewController::mouseMove(event); });
    if (self)
      checkMouse(*event);
    return taken;
  }
  bool mouseRelease(QMouseEvent* event) override {
    return input([=, this] { return UiBase::CmdsViewController::mouseRelease(event); });
  }
  bool mouseDoubleClick(QMouseEvent* event) override {
    return input([=, this] { return UiBase::CmdsViewController::mouseDoubleClick(event); });
  }
  bool keyPress(QKeyEvent* event) override {
    return input([=, this] { return UiBase::CmdsViewController::keyPress(event); });
  }
  bool keyRelease(QKeyEvent* event) override {
    return input([=, this] { return UiBase::CmdsViewController::keyRelease(event); });
  }
  bool mouseEnter(QEvent* event) override {
    return input([=, this] { return UiBase::CmdsViewController::mouseEnter(event); });
  }
  bool mouseLeave(QEvent* event) override {
    return input([=, this] { return UiBase::CmdsViewController::mouseLeave(event); });
  }
  bool hasAppeared() const { return m_told == Appeared; }
  bool wasTold() const { return m_told != Nothing; }

  int presses = 0;

protected:
  bool rightClick(QMouseEvent*) override {
    fuzz->callOut(this);
    return true;
  }
  void viewWasLost() override {
    m_toldOf = nullptr;
    forgetDeadView();
    fuzz->note(QStringLiteral("lost"), this);
    const QScopedValueRollback walk(fuzz->events, fuzz->events + 1);
    around([this] { UiBase::CmdsViewController::viewWasLost(); });
  }

private:
  enum Told { Nothing, Appeared, Disappeared };

  void hear(Told told) {
    fuzz->note(QLatin1String(told == Appeared ? "+" : "-"), this);
    if (m_toldOf != getView())
      forgetDeadView();
    m_toldOf = getView();
    fuzz->never(std::exchange(m_told, told) == told, "told twice in a row that a view appears or disappears");
  }
  template <class Base>
  void around(Base base) {
    const QPointer<UiBase::BaseViewController> self(this);
    fuzz->callOut(this);
    if (self)
      base();
    if (self)
      fuzz->callOut(this);
  }
  template <class Base>
  bool input(Base base) {
    const QPointer<UiBase::BaseViewController> self(this);
    fuzz->callOut(this);
    return !self || base();
  }

  void checkMouse(const QMouseEvent& event) {
    const auto operating = getOperatingTool();
    fuzz->never(operating && event.spontaneous() && !operating->pressEvent().isNull() &&
                    !event.buttons().testFlag(operating->pressEvent().button()),
                "an operation outlives its mouse");
  }

  // It hears no more that it disappears.
  void forgetDeadView() {
    if (!m_toldOf && m_told == Appeared)
      m_told = Nothing;
  }

  Told m_told = Nothing;
  QPointer<UiBase::BaseView> m_toldOf;
};

class FuzzTool : public UiBase::InteractiveTool {
public:
  FuzzTool(UiBase::BaseView* view, int number) : UiBase::InteractiveTool(view) {
    const Qt::CursorShape shapes[] = {Qt::CrossCursor, Qt::WaitCursor, Qt::IBeamCursor, Qt::SizeBDiagCursor};
    setIdleCursor(shapes[number % 4]);
    setOperatingCursor(Qt::CursorShape(Qt::WhatsThisCursor + number % 4));
    m_declines = number == 7;
    m_isOneShot = number == 6;
  }

  bool mousePress(QMouseEvent* event) override {
    callOut();
    return !m_declines && UiBase::InteractiveTool::mousePress(event);
  }
  bool mouseMove(QMouseEvent* event) override {
    callOut();
    return UiBase::InteractiveTool::mouseMove(event);
  }
  bool keyPress(QKeyEvent*) override {
    callOut();
    return false;
  }
  void activate() override {
    UiBase::InteractiveTool::activate();
    tell();
  }
  void deactivate() override {
    UiBase::InteractiveTool::deactivate();
    tell();
  }
  void suspend() override {
    UiBase::InteractiveTool::suspend();
    tell();
  }
  void resume() override {
    UiBase::InteractiveTool::resume();
    tell();
  }
  void startOperation() override {
    UiBase::InteractiveTool::startOperation();
    tell();
  }
  void endOperation() override {
    UiBase::InteractiveTool::endOperation();
    if (m_isOneShot)
      fuzz->takeOff(this);
    tell();
  }

private:
  // Also when the focus or the active window changes, where Qt holds on to windows.
  void tell() {
    const QScopedValueRollback guard(fuzz->keepsWindows, true);
    callOut();
  }
  void callOut() {
    const auto self = shared_from_this();
    fuzz->callOut(dynamic_cast<FuzzController*>(getDelegate()), this);
  }

  bool m_declines = false;
  bool m_isOneShot = false; // takes itself off where its operation ends
};

/// Takes the view's input while it is begun.
class FuzzCommand : public UiBase::CommandBase, public UiBase::ViewResponder {
public:
  FuzzCommand(UiBase::CmdsViewController* controller, int number)
      : UiBase::CommandBase(controller), m_number(number) {}
  QString commandId() const override { return QStringLiteral("fuzz%1").arg(m_number); }
  bool onExecuteAsync(bool) override {
    fuzz->callOut(getViewController());
    return true;
  }
  void tell(void (UiBase::CommandStateProtocol::*callback)(UiBase::CommandBase*)) {
    broadcast([=, this](UiBase::CommandStateProtocol* observer) { (observer->*callback)(this); });
  }
  bool mousePress(QMouseEvent*) override { return act(); }
  bool mouseMove(QMouseEvent*) override { return act(); }

private:
  bool act() {
    fuzz->callOut(getViewController());
    return m_number == 0;
  }

  const int m_number;
};

/// Not one that is being deleted.
inline FuzzController* controllerOf(UiBase::BaseView* view) {
  return view ? dynamic_cast<FuzzController*>(view->getViewController()) : nullptr;
}

} // namespace Vela::Test
