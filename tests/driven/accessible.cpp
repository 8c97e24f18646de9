// SPDX-License-Identifier: MIT
#include "accessible.h"

namespace Driven {
namespace {

template <typename Object>
std::shared_ptr<Object> owned(Object* object) {
  return object ? std::shared_ptr<Object>(object, [](Object* last) { g_object_unref(last); }) : nullptr;
}

QString textOf(gchar* taken) {
  const std::unique_ptr<gchar, decltype(&g_free)> text(taken, &g_free);
  return QString::fromUtf8(text.get());
}

} // namespace

Accessible::Accessible(AtspiAccessible* taken) : m_object(owned(taken)) {}

Accessible Accessible::application(const QString& name) {
  Accessible desktop(atspi_get_desktop(0));
  for (const Accessible& program : desktop.children()) {
    // What was read once may have changed since.
    atspi_accessible_set_cache_mask(program.m_object.get(), ATSPI_CACHE_NONE);
    if (program.name() == name)
      return program;
  }
  return {};
}

AtspiRole Accessible::role() const {
  return m_object ? atspi_accessible_get_role(m_object.get(), nullptr) : ATSPI_ROLE_INVALID;
}

QString Accessible::name() const {
  return m_object ? textOf(atspi_accessible_get_name(m_object.get(), nullptr)) : QString();
}

QString Accessible::description() const {
  return m_object ? textOf(atspi_accessible_get_description(m_object.get(), nullptr)) : QString();
}

QString Accessible::text() const {
  const auto field = m_object ? owned(atspi_accessible_get_text_iface(m_object.get())) : nullptr;
  return field ? textOf(atspi_text_get_text(field.get(), 0, -1, nullptr)) : QString();
}

bool Accessible::has(AtspiStateType state) const {
  const auto states = m_object ? owned(atspi_accessible_get_state_set(m_object.get())) : nullptr;
  return states && atspi_state_set_contains(states.get(), state);
}

QRect Accessible::rect() const {
  const auto place = m_object ? owned(atspi_accessible_get_component_iface(m_object.get())) : nullptr;
  const std::unique_ptr<AtspiRect, decltype(&g_free)> rect(
      place ? atspi_component_get_extents(place.get(), ATSPI_COORD_TYPE_SCREEN, nullptr) : nullptr, &g_free);
  return rect ? QRect(rect->x, rect->y, rect->width, rect->height) : QRect();
}

std::vector<Accessible> Accessible::children() const {
  std::vector<Accessible> children;
  const int count = m_object ? atspi_accessible_get_child_count(m_object.get(), nullptr) : 0;
  for (int i = 0; i < count; ++i) {
    if (Accessible child(atspi_accessible_get_child_at_index(m_object.get(), i, nullptr)); child)
      children.push_back(std::move(child));
  }
  return children;
}

Accessible Accessible::find(const Condition& condition) const {
  for (const Accessible& child : children()) {
    if (!child.has(ATSPI_STATE_SHOWING))
      continue;
    if (condition(child))
      return child;
    if (Accessible below = child.find(condition))
      return below;
  }
  return {};
}

Accessible Accessible::find(AtspiRole role, const QString& name) const {
  return find([role, &name](const Accessible& seen) { return seen.role() == role && seen.name() == name; });
}

QString Accessible::tree(int depth) const {
  QString lines;
  for (const Accessible& child : children()) {
    if (!child.has(ATSPI_STATE_SHOWING))
      continue;
    lines += QStringLiteral("%1%2 “%3”%4%5%6 “%7”\n")
                 .arg(QString(depth * 2, u' '), textOf(atspi_role_get_name(child.role())), child.name(),
                      QLatin1String(child.has(ATSPI_STATE_ENABLED) ? "" : " disabled"),
                      QLatin1String(child.has(ATSPI_STATE_FOCUSED) ? " focused" : ""),
                      QLatin1String(child.has(ATSPI_STATE_CHECKED) ? " checked" : ""), child.text());
    lines += child.tree(depth + 1);
  }
  return lines;
}

} // namespace Driven
