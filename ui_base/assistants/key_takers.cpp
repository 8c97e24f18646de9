// SPDX-License-Identifier: MIT
#include "key_takers.h"

#include "shortcut_use.h"

#include <ui_base/commands/cmd_mgr.h>
#include <ui_base/commands/command_base.h>
#include <ui_base/commands/command_name.h>
#include <ui_base/popups/flyout_base.h>
#include <ui_base/toolbars/tool_bar.h>
#include <ui_base/views/base_view.h>
#include <ui_base/views/cmds_view_controller.h>
#include <ui_base/views/presentation.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QShortcut>

#include <algorithm>

namespace Vela::UiBase {

namespace {

struct TakerTexts {
  Q_DECLARE_TR_FUNCTIONS(Vela::UiBase::KeyTaker)
};

QString nameOf(QWidget& widget) {
  const auto* const accessible = QAccessible::queryAccessibleInterface(&widget);
  const QString name = accessible ? accessible->text(QAccessible::Name) : QString();
  return name.isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : name;
}

/// Who listens in one window, as it stands.
class Listeners {
public:
  Listeners(const QKeySequence& keys, QWidget& window)
      : m_keys(keys), m_window(window), m_focus(window.focusWidget()) {}

  KeyAnswer answer() {
    addFocus();
    addFlyout();
    addMnemonics();
    addShortcuts();
    addLibrary();
    if (m_focus)
      m_answer.takers.append({KeyTaker::Leftover, nameOf(*m_focus), {}, {}});
    chooseReceiver();
    return m_answer;
  }

private:
  void add(KeyTaker::EKind kind, const QString& name, const QString& why, QAction* action = nullptr) {
    m_answer.takers.append({kind, name, why, action});
  }

  void addFocus() {
    if (!m_focus || m_keys.isEmpty())
      return;
    const QKeyCombination key = m_keys[0];
    const bool isLetter = key.key() < Qt::Key_Escape && !(key.keyboardModifiers() & Qt::ControlModifier);
    const QPointer<QWidget> guard(m_focus);
    QKeyEvent asked(QEvent::ShortcutOverride, key.key(), key.keyboardModifiers(),
                    isLetter ? QString(QChar(key.key())) : QString());
    QCoreApplication::sendEvent(m_focus, &asked);
    if (!guard)
      m_focus = nullptr;
    else if (asked.isAccepted())
      add(KeyTaker::InFocus, nameOf(*m_focus), {});
  }

  void addFlyout() {
    static const QList<QKeySequence> keys{Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter};
    if (!keys.contains(m_keys))
      return;
    const auto flyouts = m_window.findChildren<FlyoutBase*>();
    for (const FlyoutBase* const flyout : flyouts) {
      if (flyout->isVisible())
        add(KeyTaker::Flyout, flyout->Title(),
            m_focus && flyout->isAncestorOf(m_focus) ? QString() : TakerTexts::tr("The focus is not in it."));
    }
  }

  void addMnemonics() {
    const auto buttons = m_window.findChildren<QAbstractButton*>();
    for (QAbstractButton* const button : buttons) {
      if (button->window() == &m_window && button->shortcut() == m_keys)
        add(KeyTaker::Menu, nameOf(*button), whySilent(*button, Qt::WindowShortcut));
    }
  }

  void addShortcuts() {
    QList<QAction*> seen;
    const auto widgets = QApplication::allWidgets();
    for (const QWidget* const widget : widgets) {
      const auto actions = widget->actions();
      for (QAction* const action : actions) {
        const auto match = matchOf(action->shortcuts());
        if (match == QKeySequence::NoMatch || seen.contains(action))
          continue;
        seen.append(action);
        const QString why = whySilent(*action);
        const bool lacksKeys = why.isEmpty() && match == QKeySequence::PartialMatch;
        add(KeyTaker::Command, nameInSentence(*action),
            lacksKeys ? TakerTexts::tr("It wants more keys after these.") : why, action);
      }
    }
    const auto shortcuts = m_window.findChildren<QShortcut*>();
    for (const QShortcut* const shortcut : shortcuts) {
      const auto* const place = qobject_cast<QWidget*>(shortcut->parent());
      if (place && shortcut->keys().contains(m_keys) && libraryName().isEmpty())
        add(KeyTaker::Command,
            shortcut->whatsThis().isEmpty() ? TakerTexts::tr("a shortcut of the window")
                                            : shortcut->whatsThis(),
            shortcut->isEnabled() ? whySilent(*place, shortcut->context())
                                  : TakerTexts::tr("It is disabled."));
    }
  }

  QKeySequence::SequenceMatch matchOf(const QList<QKeySequence>& shortcuts) const {
    auto best = QKeySequence::NoMatch;
    for (const QKeySequence& keys : shortcuts)
      best = std::max(best, m_keys.matches(keys));
    return best;
  }

  QString libraryName() const {
    const auto known = libraryKeys();
    const auto found =
        std::find_if(known.cbegin(), known.cend(), [this](const auto& use) { return use.keys == m_keys; });
    return found == known.cend() ? QString() : found->name;
  }

  void addLibrary() {
    const QString name = libraryName();
    if (name.isEmpty())
      return;
    const bool isForBars =
        m_keys == QKeySequence(Qt::Key_F6) || m_keys == QKeySequence(Qt::SHIFT | Qt::Key_F6);
    const auto bars = m_window.findChildren<ToolBar*>();
    const bool hasBar = std::any_of(bars.cbegin(), bars.cend(), [](auto* bar) { return bar->isVisible(); });
    add(KeyTaker::Library, name, isForBars && !hasBar ? TakerTexts::tr("There is no toolbar.") : QString());
  }

  QString whySilent(const QWidget& place, Qt::ShortcutContext context) const {
    if (!place.isVisible())
      return TakerTexts::tr("Where it stands is not in sight.");
    if (!place.isEnabled())
      return TakerTexts::tr("Where it stands is disabled.");
    const auto* const view = qobject_cast<const BaseView*>(&place);
    if (view && Presentation::of(*view)->isCovered(*view))
      return TakerTexts::tr("Another view lies over its own.");
    const bool hasFocus = m_focus == &place;
    const bool isAround = m_focus && place.isAncestorOf(m_focus);
    if ((context == Qt::WidgetShortcut && !hasFocus) ||
        (context == Qt::WidgetWithChildrenShortcut && !hasFocus && !isAround))
      return TakerTexts::tr("The focus is elsewhere.");
    if (context != Qt::ApplicationShortcut && place.window() != &m_window)
      return TakerTexts::tr("It stands in another window.");
    return {};
  }

  // A menu is where its own action is.
  QString whySilentByPlace(const QAction& action, Qt::ShortcutContext context, int depth = 0) const {
    QString why = TakerTexts::tr("It stands nowhere.");
    const auto objects = action.associatedObjects();
    for (QObject* const object : objects) {
      const auto* const menu = qobject_cast<QMenu*>(object);
      const QAction* const entry = menu ? menu->menuAction() : nullptr;
      if (entry && depth < 8)
        why = entry->isEnabled() && entry->isVisible() ? whySilentByPlace(*entry, context, depth + 1)
                                                       : TakerTexts::tr("Its menu is disabled.");
      else if (const auto* const widget = qobject_cast<QWidget*>(object); widget && !menu)
        why = whySilent(*widget, context);
      if (why.isEmpty())
        return why;
    }
    return why;
  }

  QString whySilent(const QAction& action) const {
    if (!action.isVisible())
      return TakerTexts::tr("It is hidden.");
    if (action.isEnabled())
      return whySilentByPlace(action, action.shortcutContext());
    const auto* const command = dynamic_cast<const CommandBase*>(&action);
    QStringList reasons;
    if (const CmdMgr* const manager = command ? command->getViewController() : nullptr) {
      const auto causes = manager->explain(command->commandId());
      for (const CommandCause& cause : causes)
        reasons.append(cause.text);
    }
    return reasons.isEmpty() ? TakerTexts::tr("It is disabled.") : reasons.join(u' ');
  }

  void chooseReceiver() {
    const auto isShortcut = [](const KeyTaker& taker) {
      return taker.why.isEmpty() && (taker.kind == KeyTaker::Menu || taker.kind == KeyTaker::Command);
    };
    const auto& takers = m_answer.takers;
    const auto first =
        std::find_if(takers.cbegin(), takers.cend(), [](const auto& taker) { return taker.why.isEmpty(); });
    if (first == takers.cend())
      return;
    const bool isOne = std::count_if(takers.cbegin(), takers.cend(), isShortcut) < 2;
    m_answer.isAmbiguous = isShortcut(*first) && !isOne;
    if (!m_answer.isAmbiguous)
      m_answer.receiver = static_cast<int>(first - takers.cbegin());
  }

  const QKeySequence m_keys;
  QWidget& m_window;
  QWidget* m_focus;
  KeyAnswer m_answer;
};

} // namespace

KeyAnswer whoTakes(const QKeySequence& keys, QWidget& window) { return Listeners(keys, window).answer(); }

} // namespace Vela::UiBase
