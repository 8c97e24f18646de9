// SPDX-License-Identifier: MIT
#include "menu_state.h"

#include <utility>

namespace Vela::UiBase {

bool MenuState::beginReopening() {
  if (m_phase == Closing)
    m_phase = Reopening;
  return m_phase == Reopening;
}

bool MenuState::beginOpening() {
  if (m_phase != Closed)
    return false;
  m_phase = Opening;
  return true;
}

bool MenuState::finishOpening() {
  if (m_phase != Opening)
    return false;
  m_phase = Open;
  m_announced = true;
  return true;
}

bool MenuState::beginClosing() {
  if (m_phase == Reopening)
    m_phase = Closing; // closed once more
  if (!isShown())
    return false;
  m_phase = Closing;
  return true;
}

bool MenuState::finishClosing() {
  if (m_phase != Closing && m_phase != Reopening)
    return false;
  m_announced = false;
  return std::exchange(m_phase, Closed) == Reopening;
}

void MenuState::closedByPress() { m_click = ClickCloses; }

void MenuState::clicked(bool open) {
  if (m_click != ClickCloses)
    m_click = open ? ClickCloses : ClickOpens;
}

MenuState::EClick MenuState::takeClick() { return std::exchange(m_click, NoClick); }

} // namespace Vela::UiBase
