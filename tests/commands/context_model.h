// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>

#include <utility>

/// What layers of contexts come to, in plain values and at once: no commands, no tasks, nothing of the
/// library. Off is 0, on 1, keep 2.
class ContextModel {
public:
  enum Part { Enabled, Checked };
  using Key = std::pair<QString, Part>;
  using States = QMap<QString, std::pair<int, int>>; // enabled, checked

  struct Layer {
    int id;
    QMap<Key, int> saved;
    QSet<QString> late; // came afterwards
    States asked;
    QSet<Key> named;
    QString holder;
    bool held;
  };

  States present;
  QSet<QString> checkable;
  QMap<QString, QSet<QString>> exclusive; // a member: the others
  QMap<QString, QString> groupOf;
  QMap<QString, QSet<QString>> childrenOf;
  QList<Layer> layers;

  void check(States& states, const QString& id, int on) const {
    if (!states.contains(id) || !checkable.contains(id) || on == 2 || on == states[id].second ||
        childrenOf.contains(id))
      return;
    states[id].second = on;
    for (const QString& rival : exclusive.value(id)) {
      if (on)
        states[rival].second = 0;
    }
    if (groupOf.contains(id))
      follow(states, groupOf[id]);
  }

  void set(const States& asked) {
    for (auto entry = asked.cbegin(); entry != asked.cend(); ++entry) {
      if (!present.contains(entry.key()))
        continue;
      if (entry->first != 2)
        present[entry.key()].first = entry->first;
      check(present, entry.key(), entry->second);
    }
  }

  int push(const States& asked, const QString& holder, bool held) {
    Layer layer{++m_lastId, {}, {}, asked, {}, holder, held};
    for (auto entry = present.cbegin(); entry != present.cend(); ++entry) {
      layer.saved[{entry.key(), Enabled}] = entry->first;
      layer.saved[{entry.key(), Checked}] = entry->second;
    }
    for (auto entry = asked.cbegin(); entry != asked.cend(); ++entry)
      name(layer, entry.key());
    layers.append(layer);
    for (const Layer& holding : std::as_const(layers)) {
      if (holding.held && present.contains(holding.holder))
        layers.last().saved[{holding.holder, Checked}] = 2;
    }
    set(asked);
    return m_lastId;
  }

  void release(int id) {
    for (qsizetype i = 0; i < layers.size(); ++i) {
      if (layers[i].id == id) {
        const Layer ended = layers.takeAt(i);
        States changes;
        for (const Key& key : ended.named) {
          if (const int value = ended.saved.value(key, 2); value != 2 && handUp(i, key, value))
            put(changes, key, value);
        }
        set(changes);
        return;
      }
    }
  }

  bool hasFree() const {
    return std::any_of(layers.cbegin(), layers.cend(), [](const Layer& layer) { return !layer.held; });
  }

  void pop() {
    if (layers.isEmpty())
      return;
    qsizetype i = layers.size() - 1;
    while (i > 0 && layers[i].held)
      --i;
    if (!layers[i].held && i < layers.size() - 1) {
      release(layers[i].id);
      return;
    }
    States all;
    const Layer top = layers.takeLast();
    for (auto entry = top.saved.cbegin(); entry != top.saved.cend(); ++entry)
      put(all, entry.key(), entry.value());
    set(all);
  }

  void add(const QString& id, int enabled, int checked) {
    std::pair<int, int> now(enabled, checked);
    bool ownsChecked = false;
    for (Layer& layer : layers) {
      ownsChecked |= layer.held && layer.holder == id;
      if (!layer.saved.contains({id, Enabled})) {
        layer.late.insert(id);
        layer.saved[{id, Enabled}] = now.first;
        layer.saved[{id, Checked}] = ownsChecked ? 2 : now.second;
      }
      const auto [askedEnabled, askedChecked] = layer.asked.value(id, {2, 2});
      if (askedChecked != 2 && checkable.contains(id) && groupOf.contains(id))
        layer.named.insert({groupOf[id], Checked});
      now = {askedEnabled == 2 ? now.first : askedEnabled,
             askedChecked == 2 || !checkable.contains(id) ? now.second : askedChecked};
    }
    present[id] = now;
  }

  void leave(const QString& id) {
    present.remove(id);
    childrenOf[groupOf[id]].remove(id);
    follow(present, groupOf[id]);
  }

  void join(const QString& id, int checked) {
    add(id, 1, checked);
    childrenOf[groupOf[id]].insert(id);
    follow(present, groupOf[id]);
  }

  void setGround(const QString& id, int enabled, int checked) {
    States changes;
    const auto give = [&](const Key& key, int value) {
      if (value != 2 && handUp(0, key, value))
        put(changes, key, value);
    };
    States ground;
    for (auto entry = layers.first().saved.cbegin(); entry != layers.first().saved.cend(); ++entry)
      put(ground, entry.key(), entry.value());
    const States before = ground;
    check(ground, id, checked);
    for (auto entry = before.cbegin(); entry != before.cend(); ++entry) {
      if (entry.key() != id && entry->second != ground[entry.key()].second)
        give({entry.key(), Checked}, ground[entry.key()].second);
    }
    give({id, Enabled}, enabled);
    give({id, Checked}, checked);
    set(changes);
  }

private:
  void follow(States& states, const QString& group) const {
    int any = 0;
    for (const QString& child : childrenOf[group])
      any |= states.value(child).second == 1;
    states[group].second = any;
  }
  static void put(States& states, const Key& key, int value) {
    if (!states.contains(key.first))
      states[key.first] = {2, 2};
    (key.second == Enabled ? states[key.first].first : states[key.first].second) = value;
  }

  // The checked parts of an exclusive group, and that of the group they stand in, are one.
  void name(Layer& layer, const QString& id) const {
    const auto [enabled, checked] = layer.asked[id];
    if (enabled != 2)
      layer.named.insert({id, Enabled});
    if (checked == 2)
      return;
    layer.named.insert({id, Checked});
    if (!present.contains(id) || !checkable.contains(id))
      return;
    for (const QString& rival : exclusive.value(id))
      layer.named.insert({rival, Checked});
    if (groupOf.contains(id))
      layer.named.insert({groupOf[id], Checked});
  }

  bool handUp(qsizetype from, const Key& key, int value) {
    for (qsizetype i = from; i < layers.size(); ++i) {
      if (layers[i].saved.value(key, 2) != 2)
        layers[i].saved[key] = value;
      if (layers[i].named.contains(key))
        return false;
    }
    return true;
  }

  int m_lastId = 0;
};
