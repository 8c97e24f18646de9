// SPDX-License-Identifier: MIT
#pragma once

#include <ui_base/ui_base_export.h>

namespace Vela::UiBase {

/// How far the menu of a button is open, and what the click on the button that is under way will do with it.
/// It changes by the named steps only; each says what the caller has to do.
class UI_BASE_EXPORT MenuState {
public:
  enum EPhase : int {
    Closed = 0,
    Opening = 1,   ///< It is being shown, and nobody has been told.
    Open = 2,      ///< Everybody has been told.
    Closing = 3,   ///< It has gone; everybody is being told.
    Reopening = 4, ///< The same, and meanwhile somebody wants it back.
  };
  enum EClick : int {
    NoClick = 0,
    ClickOpens = 1,
    ClickCloses = 2,
  };

  /// How far opening or closing is.
  EPhase phase() const { return m_phase; }
  /// What the click under way will do.
  EClick click() const { return m_click; }
  /// Whether it is open, or about to be.
  bool isShown() const { return m_phase == Opening || m_phase == Open; }
  /// Whether something is being done with the menu now, and its window is not to be deleted at once.
  bool isChanging() const { return m_phase != Closed && m_phase != Open; }

  /// @return whether it is closing, and will be opened when everybody has been told.
  bool beginReopening();
  /// @return whether it begins to open. Not when it is open, or closing.
  bool beginOpening();
  /// @return whether its opening is to be announced.
  bool finishOpening();
  /// @return whether it begins to close.
  bool beginClosing();
  /// Whether its opening was announced, so that its end is to be as well.
  bool isAnnounced() const { return m_announced; }
  /// @return whether it is to be opened again, now that everybody has been told.
  bool finishClosing();

  /// A press on the button has closed the menu; the click that may follow is not to open it again.
  void closedByPress();
  /// A click begins to be handled.
  void clicked(bool open);
  /// The press has ended, and with it what it stood for.
  void released() { m_click = NoClick; }
  /// @return what the click is for, which is then dealt with.
  EClick takeClick();

private:
  EPhase m_phase = Closed;
  EClick m_click = NoClick;
  bool m_announced = false;
};

} // namespace Vela::UiBase
