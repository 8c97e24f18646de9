// SPDX-License-Identifier: MIT
#include "context_hold.h"

#include "cmd_mgr.h"

#include <utility>

namespace Vela::UiBase {

ContextHold::ContextHold() noexcept = default;

ContextHold::ContextHold(std::weak_ptr<CmdMgr> manager, quint64 layer, ContextHolder holder)
    : m_manager(std::move(manager)), m_layer(layer), m_holder(std::move(holder)) {}

ContextHold::ContextHold(ContextHold&& other) noexcept = default;

ContextHold& ContextHold::operator=(ContextHold&& other) noexcept {
  if (this == &other)
    return *this;
  ContextHold before(std::move(*this));
  m_manager = std::move(other.m_manager);
  m_layer = other.m_layer;
  m_holder = std::move(other.m_holder);
  return *this;
}

ContextHold::~ContextHold() { release(); }

void ContextHold::release() {
  if (const auto manager = std::exchange(m_manager, {}).lock())
    manager->releaseLayer(m_layer);
}

bool ContextHold::isHolding() const {
  const auto manager = m_manager.lock();
  return manager && manager->hasLayer(m_layer);
}

} // namespace Vela::UiBase
