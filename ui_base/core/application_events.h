// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QList>
#include <QObject>
#include <QPointer>

#include <bitset>
#include <cstddef>
#include <initializer_list>

namespace Vela::UiBase {

/// The one event filter on the application object of all that watch the program for good. Qt asks each filter
/// there about every event, most of which are moves of the mouse and of interest to none of them.
///
/// Who watches for a while, as an open menu does, installs a filter of its own.
class ApplicationEvents : public QObject {
public:
  /// Types of events; those of Qt itself.
  using Types = std::initializer_list<QEvent::Type>;

  /// Has @p watcher filter the events of these types, whoever receives them, as long as it lives. Who came
  /// last is asked first, as with event filters. Does nothing without an application object. Main thread
  /// only.
  static void watch(QObject& watcher, Types types);
  /// Has @p watcher filter all that the application object itself receives.
  static void watchApplication(QObject& watcher);

  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  using TypeSet = std::bitset<QEvent::User>;

  struct Watch {
    QPointer<QObject> watcher;
    TypeSet types;
    bool application = false;

    bool wants(std::size_t type, bool ofApplication) const;
  };

  explicit ApplicationEvents(QObject* application);

  static ApplicationEvents* instance();
  void add(const Watch& watch);
  bool ask(QObject* watched, QEvent* event) const;

  QList<Watch> m_watches;
  TypeSet m_types; // of all
};

} // namespace Vela::UiBase
