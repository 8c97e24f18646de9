// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

#include <QString>

#include <memory>
#include <utility>

namespace Vela::UiBase {

class CmdMgr;

/// Who holds a layer of contexts, and so why commands stand as they do. A value type; making one costs no
/// text of its own.
class UI_BASE_EXPORT ContextHolder {
public:
  enum EKind : int {
    Nobody,         ///< Not said.
    RunningCommand, ///< A command that works on another thread.
    OpenCommand,    ///< A command whose panel is open.
    Reason,         ///< A text, for the user.
  };

  ContextHolder() = default;
  /// Held because a command runs.
  static ContextHolder running(const QString& commandId) { return {RunningCommand, commandId}; }
  /// Held because a flyout or tool of a command is open.
  static ContextHolder open(const QString& commandId) { return {OpenCommand, commandId}; }
  /// Held for a reason that is told to the user.
  static ContextHolder because(const QString& reason) { return {Reason, reason}; }

  /// What kind of holder it is.
  EKind kind() const { return m_kind; }
  /// The identifier of the command; empty when no command holds.
  QString commandId() const { return m_kind == Reason ? QString() : m_text; }
  /// The text given; empty when it is not a text that holds.
  QString reason() const { return m_kind == Reason ? m_text : QString(); }

  friend bool operator==(const ContextHolder& a, const ContextHolder& b) {
    return a.m_kind == b.m_kind && a.m_text == b.m_text;
  }

private:
  ContextHolder(EKind kind, QString text) : m_kind(kind), m_text(std::move(text)) {}

  EKind m_kind = Nobody;
  QString m_text;
};

/// The hold on a layer of contexts, see CmdMgr::holdContext(). Releasing it, or destroying it, undoes exactly
/// what that layer has brought, wherever it stands among the others.
///
/// A hold names its layer by identity. It may outlive the layer, which popContext() and resetContext() can
/// end, and the manager; releasing it does nothing then. It may be released on any thread; on another than
/// the main thread the layer ends as a task of that one.
///
/// @code
/// m_hold = manager->holdContext(manager->disabledContext(),
///                               ContextHolder::because(tr("The scanner is busy")));
/// …
/// m_hold.release();
/// @endcode
class [[nodiscard]] ContextHold {
public:
  UI_BASE_EXPORT ContextHold() noexcept;
  /// The moved-from hold holds nothing.
  UI_BASE_EXPORT ContextHold(ContextHold&& other) noexcept;
  /// Releases what it held before.
  UI_BASE_EXPORT ContextHold& operator=(ContextHold&& other) noexcept;
  UI_BASE_EXPORT ~ContextHold();

  /// Ends the hold now; a second call does nothing.
  UI_BASE_EXPORT void release();
  /// Whether it has a layer that still stands. For the main thread.
  UI_BASE_EXPORT bool isHolding() const;
  /// Who holds it, and why.
  const ContextHolder& holder() const noexcept { return m_holder; }

private:
  friend class CmdMgr;
  ContextHold(std::weak_ptr<CmdMgr> manager, quint64 layer, ContextHolder holder);

  std::weak_ptr<CmdMgr> m_manager;
  quint64 m_layer = 0;
  ContextHolder m_holder;
};

} // namespace Vela::UiBase
