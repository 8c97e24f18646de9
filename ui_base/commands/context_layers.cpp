// SPDX-License-Identifier: MIT
#include "context_layers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Vela::UiBase {

namespace {

constexpr std::array<State CommandState::*, 2> parts{&CommandState::enabled, &CommandState::checked};

void setPart(CommandContext& context, const QString& id, State CommandState::*part, State value) {
  if (!context.contains(id))
    context.overwrite(id, {State::Keep, State::Keep});
  (context[id].*part).overwrite(value);
}

void leaveChecked(CommandContext& context, const QString& id) {
  if (context.contains(id))
    setPart(context, id, &CommandState::checked, State::Keep);
}

} // namespace

bool AskedContext::names(const QString& id, State CommandState::*part) const {
  if (part == &CommandState::checked && following.contains(id))
    return true;
  const auto found = states.get().constFind(id);
  return found != states.get().cend() && (*found).*part != State::Keep;
}

ContextLayers::Id ContextLayers::push(CommandContext saved, CommandContext beside, AskedContext asked,
                                      const ContextHolder& holder, bool isHeld) {
  m_layers.push_back({++m_lastId, std::move(asked), std::move(beside), holder, isHeld});
  for (const Layer& layer : m_layers) {
    if (layer.isHeld) {
      leaveChecked(saved, layer.holder.commandId());
      leaveChecked(m_layers.back().beside, layer.holder.commandId());
    }
  }
  m_saved.append(saved);
  return m_lastId;
}

QList<ContextLayer> ContextLayers::describe() const {
  QList<ContextLayer> layers;
  for (const Layer& layer : m_layers)
    layers.append({layer.holder, layer.isHeld, layer.asked.states});
  return layers;
}

CommandContext ContextLayers::release(Id layer) {
  const qsizetype i = indexOf(layer);
  if (i < 0)
    return {};
  const Layer ended = std::move(at(i));
  CommandContext before = m_saved.takeAt(i);
  m_layers.erase(m_layers.begin() + i);
  before.overwrite(ended.beside);

  CommandContext present;
  const auto undo = [&](const QString& id, Part part) {
    const auto saved = before.get().constFind(id);
    if (saved != before.get().cend() && (*saved).*part != State::Keep &&
        giveUpwards(i, id, part, (*saved).*part))
      setPart(present, id, part, (*saved).*part);
  };
  const auto& asked = ended.asked.states.get();
  for (auto entry = asked.cbegin(); entry != asked.cend(); ++entry) {
    for (const Part part : parts) {
      if ((*entry).*part != State::Keep)
        undo(entry.key(), part);
    }
  }
  for (const QString& id : ended.asked.following)
    undo(id, &CommandState::checked);
  return present;
}

CommandContext ContextLayers::pop() {
  if (isEmpty())
    return {};
  const auto free =
      std::find_if(m_layers.crbegin(), m_layers.crend(), [](const Layer& layer) { return !layer.isHeld; });
  if (free != m_layers.crend() && free != m_layers.crbegin())
    return release(free->id);
  CommandContext restored = m_saved.takeLast();
  restored.overwrite(m_layers.back().beside);
  m_layers.pop_back();
  return restored;
}

void ContextLayers::clear() {
  m_layers.clear();
  m_saved.clear();
}

void ContextLayers::update(const QString& id, const CommandState& state) {
  for (CommandContext& saved : m_saved) {
    if (!saved.contains(id))
      return;
    saved.overwrite(id, state);
  }
}

CommandContext ContextLayers::ground() const {
  CommandContext ground = m_saved.constFirst();
  ground.overwrite(at(0).beside);
  return ground;
}

CommandState ContextLayers::groundState(const QString& id, const CommandState& present) const {
  CommandState ground = present;
  for (const Part part : parts)
    ground.*part = groundPart(id, part, present.*part);
  return ground;
}

State ContextLayers::groundPart(const QString& id, State CommandState::*part, State present) const {
  for (qsizetype i = 0; i < count(); ++i) {
    if (!at(i).asked.names(id, part))
      continue;
    if (const CommandState* const saved = savedState(i, id))
      present = saved->*part; // merges: Keep is the present state
    break;
  }
  return present;
}

CommandContext ContextLayers::setGround(const CommandContext& states) {
  CommandContext present;
  for (auto entry = states.get().cbegin(); entry != states.get().cend(); ++entry) {
    for (const Part part : parts) {
      if ((*entry).*part != State::Keep && giveUpwards(0, entry.key(), part, (*entry).*part))
        setPart(present, entry.key(), part, (*entry).*part);
    }
  }
  return present;
}

// A layer that names a part over a lower one has the say. So who is under one that enables does not count.
QList<ContextHolder> ContextLayers::disabling(const QString& id) const {
  QList<ContextHolder> holders;
  for (auto layer = m_layers.crbegin(); layer != m_layers.crend(); ++layer) {
    const auto found = layer->asked.states.get().constFind(id);
    if (found == layer->asked.states.get().cend() || found->enabled == State::Keep)
      continue;
    if (found->enabled == State::On)
      break;
    holders.append(layer->holder);
  }
  return holders;
}

qsizetype ContextLayers::indexOf(Id layer) const {
  const auto found = std::find_if(m_layers.cbegin(), m_layers.cend(),
                                  [layer](const Layer& standing) { return standing.id == layer; });
  return found == m_layers.cend() ? -1 : found - m_layers.cbegin();
}

const CommandState* ContextLayers::savedState(qsizetype i, const QString& id) const {
  for (const CommandContext* const context : {&m_saved.at(i), &at(i).beside}) {
    if (const auto found = context->get().constFind(id); found != context->get().cend())
      return &*found;
  }
  return nullptr;
}

void ContextLayers::save(qsizetype i, const QString& id, Part part, State value) {
  const CommandState* const saved = savedState(i, id);
  if (!saved || saved->*part == State::Keep || saved->*part == value)
    return;
  setPart(m_saved.at(i).contains(id) ? m_saved[i] : at(i).beside, id, part, value);
}

// @return whether it reaches the present state.
bool ContextLayers::giveUpwards(qsizetype from, const QString& id, Part part, State value) {
  for (qsizetype i = from; i < count(); ++i) {
    save(i, id, part, value);
    if (at(i).asked.names(id, part))
      return false;
  }
  return true;
}

void ContextLayers::saveArrived(qsizetype i, const QString& id, const CommandState& state) {
  if (savedState(i, id))
    return;
  at(i).beside.overwrite(id, state);
  if (isOfAHolder(i, id))
    leaveChecked(at(i).beside, id);
}

bool ContextLayers::isOfAHolder(qsizetype upTo, const QString& id) const {
  return std::any_of(m_layers.cbegin(), m_layers.cbegin() + upTo + 1,
                     [&id](const Layer& layer) { return layer.isHeld && layer.holder.commandId() == id; });
}

} // namespace Vela::UiBase
