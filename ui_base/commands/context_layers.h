// SPDX-License-Identifier: MIT
#pragma once

#include "command_context.h"
#include "context_hold.h"
#include "context_layer.h"

#include <QList>
#include <QSet>
#include <QStringList>

#include <utility>
#include <vector>

namespace Vela::UiBase {

/// A context as it is handed over: what it asks for, and the commands whose checked part follows from that,
/// the rivals in exclusive groups and the groups that hold a child.
struct AskedContext {
  CommandContext states;
  QSet<QString> following;

  /// Whether a part of a command, a member of CommandState, is named; Keep names nothing.
  bool names(const QString& id, State CommandState::*part) const;
};

/// The contexts that lie over one another, each with what it asks for, what stood before it, and who holds
/// it. Knows no commands: what follows for the present states is handed back.
///
/// A layer ends at any height and undoes just the parts it names: what it saved goes to the layers above, up
/// to the first that names the part too, and where none does, to the present state. So layers may end in any
/// order. Where a saved part is Keep, it stays so and restores nothing.
class ContextLayers {
public:
  using Id = quint64; // 0 is none
  using Part = State CommandState::*;

  bool isEmpty() const { return m_layers.empty(); }
  bool contains(Id layer) const { return indexOf(layer) >= 0; }
  /// The layers, the lowest first.
  QList<ContextLayer> describe() const;
  /// What each layer saved, the lowest first.
  const QList<CommandContext>& saved() const { return m_saved; }

  /// Adds a layer on top. @p beside holds the states of commands that are in no bag. The checked part of a
  /// holder is its own from now on: no layer restores it.
  Id push(CommandContext saved, CommandContext beside, AskedContext asked, const ContextHolder& holder,
          bool isHeld);
  /// Ends a layer. @return what changes in the present states.
  CommandContext release(Id layer);
  /// Ends the topmost layer without a hold, or the top one where all are held. @return the whole of what the
  /// top one saved, of another one what changes in the present states.
  CommandContext pop();
  void clear();
  /// Replaces a saved state from the bottom up to the first layer that did not save it.
  void update(const QString& id, const CommandState& state);

  /// The states below all layers. Only where there are layers.
  CommandContext ground() const;
  /// A command's state as it would be without the layers. @p present is its present state.
  CommandState groundState(const QString& id, const CommandState& present) const;
  /// One part of it.
  State groundPart(const QString& id, State CommandState::*part, State present) const;
  /// Sets states at the ground. @return what changes in the present states.
  CommandContext setGround(const CommandContext& states);

  /// Lays the layers over commands that came after them. @p now holds the states they came with, and is
  /// changed by @p lay, which also tells what follows: QSet<QString>(CommandContext&, id, state).
  /// @return the states that the layers name.
  template <class Lay>
  CommandContext layOver(const QStringList& arrived, CommandContext& now, const Lay& lay);

  /// Who disables a command, the top one first; empty when no layer does.
  QList<ContextHolder> disabling(const QString& id) const;

private:
  struct Layer {
    Id id;
    AskedContext asked;
    CommandContext beside; // saved too, of commands that came later or are in no bag
    ContextHolder holder;
    bool isHeld;
  };

  qsizetype count() const { return m_saved.size(); }
  Layer& at(qsizetype i) { return m_layers[static_cast<std::size_t>(i)]; }
  const Layer& at(qsizetype i) const { return m_layers[static_cast<std::size_t>(i)]; }
  qsizetype indexOf(Id layer) const;
  const CommandState* savedState(qsizetype i, const QString& id) const;
  void save(qsizetype i, const QString& id, Part part, State value);
  bool giveUpwards(qsizetype from, const QString& id, Part part, State value);
  void saveArrived(qsizetype i, const QString& id, const CommandState& state);
  bool isOfAHolder(qsizetype upTo, const QString& id) const;

  QList<CommandContext> m_saved; // as many as layers
  std::vector<Layer> m_layers;   // the lowest first
  Id m_lastId = 0;
};

template <class Lay>
CommandContext ContextLayers::layOver(const QStringList& arrived, CommandContext& now, const Lay& lay) {
  CommandContext named;
  for (qsizetype i = 0; i < count(); ++i) {
    for (const QString& id : arrived)
      saveArrived(i, id, now[id]);
    AskedContext& asked = at(i).asked;
    for (const QString& id : arrived) {
      if (!asked.states.contains(id))
        continue;
      const CommandState state = std::as_const(asked.states)[id];
      asked.following.unite(lay(now, id, state));
      if (!named.contains(id))
        named.overwrite(id, {State::Keep, State::Keep});
      named.update(id, state);
    }
  }
  return named;
}

} // namespace Vela::UiBase
