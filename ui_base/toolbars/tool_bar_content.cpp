// SPDX-License-Identifier: MIT
#include "tool_bar_content.h"

#include <ui_base/toolbars/tool_button.h>

#include <QChildEvent>
#include <QGridLayout>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

class ToolBarContent::Panel : public QWidget {
public:
  Panel(ToolBarContent& content, QWidget* parent) : QWidget(parent), m_content(content) {}
  // One by one: a button that goes may change others, for which Qt looks through all that are there.
  ~Panel() override {
    const QObjectList all = children();
    const QList<QPointer<QObject>> guarded(all.cbegin(), all.cend());
    for (const QPointer<QObject>& child : guarded)
      delete child.data();
  }

protected:
  void childEvent(QChildEvent* event) override {
    if (event->removed())
      m_content.take(event->child());
  }

private:
  ToolBarContent& m_content;
};

ToolBarContent::ToolBarContent(QWidget* parent) : QWidget(parent), m_inner(new QWidget(this)) {
  m_inner->installEventFilter(this);
}

// The buttons announce what becomes of their menus, and nobody is to find a dead one here then.
ToolBarContent::~ToolBarContent() {
  m_groups.clear();
  m_listener = nullptr;
  delete std::exchange(m_layout, nullptr);
  delete m_inner;
}

// What has the layout hears of its changes.
bool ToolBarContent::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest && m_listener && hasChanged())
    m_listener();
  return false;
}

// A picture that is swapped under the mouse asks for a layout, too.
bool ToolBarContent::hasChanged() {
  activate();
  const Seen now = look();
  return std::exchange(m_seen, now) != now;
}

ToolBarContent::Seen ToolBarContent::look() const {
  Seen now{neededSize(), buttons(), {}};
  for (const ToolButton* const button : std::as_const(now.buttons))
    now.places.append(button->isHidden() ? QRect() : button->geometry());
  return now;
}

QBoxLayout::Direction ToolBarContent::direction() const {
  return horizontal() ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom;
}

void ToolBarContent::createLayout() {
  if (m_layout)
    return;
  m_layout = new QBoxLayout(direction(), m_inner);
  m_layout->setContentsMargins({});
  m_layout->setSpacing(m_groupSpacing);
  for (const Group& group : m_groups)
    m_layout->addWidget(group.panel);
  m_layout->addStretch(1);
}

void ToolBarContent::setOrientation(Qt::Orientation orientation) {
  const bool changes = std::exchange(m_orientation, orientation) != orientation;
  createLayout();
  if (!changes)
    return;
  m_layout->setDirection(direction());
  layOutAll();
}

void ToolBarContent::setColumns(int columns) {
  m_columns = std::max(0, columns);
  createLayout();
  layOutAll();
}

void ToolBarContent::setSpacing(int buttons, int groups) {
  m_buttonSpacing = buttons;
  m_groupSpacing = groups;
  if (m_layout)
    m_layout->setSpacing(groups);
  for (const Group& group : m_groups)
    group.panel->layout()->setSpacing(buttons);
}

void ToolBarContent::setGroupMargins(const QMargins& margins) {
  m_groupMargins = margins;
  for (const Group& group : m_groups)
    group.panel->layout()->setContentsMargins(margins);
}

ToolBarContent::Group& ToolBarContent::group(const QString& name) {
  const auto found =
      std::find_if(m_groups.begin(), m_groups.end(), [&](const Group& group) { return group.name == name; });
  if (found != m_groups.end())
    return *found;
  auto* const panel = new Panel(*this, m_inner);
  m_groups.push_back({name, panel, {}, 0});
  layOut(m_groups.back());
  if (m_layout)
    m_layout->insertWidget(m_layout->count() - 1, panel);
  if (m_inner->isVisible())
    panel->show();
  return m_groups.back();
}

QWidget* ToolBarContent::panel(const QString& name) { return group(name).panel; }

int ToolBarContent::columnsOf(const Group& group) const {
  return group.columns > 0 ? group.columns : m_columns;
}

void ToolBarContent::setGroupColumns(const QString& name, int columns) {
  Group& changed = group(name);
  if (std::exchange(changed.columns, columns) != columns)
    layOut(changed);
}

void ToolBarContent::layOut(Group& group) {
  delete group.panel->layout();
  if (const int columns = columnsOf(group); columns > 0) {
    auto* const grid = new QGridLayout(group.panel);
    for (int i = 0; i < group.buttons.size(); ++i)
      grid->addWidget(group.buttons[i], i / columns, i % columns);
  } else {
    auto* const box = new QBoxLayout(direction(), group.panel);
    for (ToolButton* const button : std::as_const(group.buttons))
      box->addWidget(button);
  }
  group.panel->layout()->setSpacing(m_buttonSpacing);
  group.panel->layout()->setContentsMargins(m_groupMargins);
}

void ToolBarContent::layOutAll() {
  for (Group& group : m_groups)
    layOut(group);
}

// Layouts that do not show say nothing of their changes.
void ToolBarContent::noteChange() {
  if (isVisible() || std::exchange(m_changeNoted, true))
    return;
  const auto tell = [this] {
    if (m_listener)
      m_listener();
    m_changeNoted = false;
  };
  QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void ToolBarContent::insert(ToolButton& button, const QString& name, int index) {
  Group& target = group(name);
  if (button.parentWidget() != target.panel)
    button.setParent(target.panel);
  const bool atEnd = index < 0 || index >= target.buttons.size();
  target.buttons.insert(atEnd ? target.buttons.size() : index, &button);
  if (auto* const box = qobject_cast<QBoxLayout*>(target.panel->layout()))
    box->insertWidget(atEnd ? -1 : index, &button);
  else
    layOut(target);
  noteChange();
}

void ToolBarContent::move(ToolButton& button, const QString& name, int index) {
  Group& target = group(name);
  const auto before = target.buttons.value(index) == &button ? index : target.buttons.indexOf(&button);
  if (before < 0 || before == index)
    return;
  target.buttons.removeAt(before);
  target.panel->layout()->removeWidget(&button);
  insert(button, name, index);
}

void ToolBarContent::take(const QObject* button) {
  for (auto group = m_groups.begin(); group != m_groups.end(); ++group) {
    const auto index = std::find(group->buttons.cbegin(), group->buttons.cend(), button);
    if (index == group->buttons.cend())
      continue;
    group->buttons.erase(index);
    if (columnsOf(*group) > 0)
      layOut(*group);
    noteChange();
    if (group->buttons.isEmpty()) {
      group->panel->hide();
      group->panel->deleteLater();
      m_groups.erase(group);
    }
    return;
  }
}

void ToolBarContent::updatePanels() {
  for (const Group& group : m_groups) {
    const auto hidden = [](const ToolButton* button) { return button->isHidden(); };
    const bool shows = !std::all_of(group.buttons.cbegin(), group.buttons.cend(), hidden);
    if (shows == group.panel->isHidden())
      group.panel->setVisible(shows);
  }
}

QList<ToolButton*> ToolBarContent::buttons() const {
  QList<ToolButton*> all;
  for (const Group& group : m_groups)
    all += group.buttons;
  return all;
}

QList<ToolButton*> ToolBarContent::buttons(const QString& name) const {
  const auto found =
      std::find_if(m_groups.begin(), m_groups.end(), [&](const Group& group) { return group.name == name; });
  return found == m_groups.end() ? QList<ToolButton*>() : found->buttons;
}

QList<ToolBarGroupRects> ToolBarContent::rects() const {
  const QPoint shift = pos() + m_inner->pos();
  QList<ToolBarGroupRects> all;
  for (const Group& group : m_groups) {
    ToolBarGroupRects rects{group.panel->geometry().translated(shift), {}};
    for (const ToolButton* const button : group.buttons) {
      if (!button->isHidden())
        rects.buttons.append(button->geometry().translated(rects.panel.topLeft()));
    }
    if (!rects.buttons.isEmpty())
      all.append(rects);
  }
  return all;
}

QSize ToolBarContent::neededSize() const {
  if (m_changeNoted) {
    for (const Group& group : m_groups)
      group.panel->updateGeometry();
  }
  return m_layout ? m_layout->sizeHint() : QSize(0, 0);
}

// Also while the bar is hidden, when widgets do not hear of their sizes yet.
void ToolBarContent::activate() {
  if (!m_layout)
    return;
  m_layout->activate();
  m_layout->setGeometry(m_inner->rect());
  for (const Group& group : m_groups)
    group.panel->layout()->setGeometry(group.panel->rect());
}

} // namespace Vela::UiBase
