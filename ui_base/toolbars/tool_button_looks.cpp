// SPDX-License-Identifier: MIT
#include "tool_button.h"
#include "tool_button_accessible.h"
#include "tool_button_p.h"

#include <ui_base/commands/command_base.h>
#include <ui_base/popups/arrowed_window.h>
#include <ui_base/popups/widget_pos_calculator.h>
#include <vlk_license/license_service.h>
#include <vlk_license/lock_badge.h>

#include <QEvent>
#include <QIconEngine>
#include <QStyleOptionToolButton>

#include <utility>

namespace Vela::UiBase {

using License::LicenseService;

struct SwapPictures {
  QIcon source; // also of what is seldom needed
  QIcon normal;
  QIcon active;
  bool showsActive = false;
};

namespace {

constexpr QSize pictureSize(32, 32); // px; of the pictures that are swapped under the mouse

/// Shows one of two pictures, whichever is due when it is painted.
class SwapIconEngine : public QIconEngine {
public:
  explicit SwapIconEngine(std::shared_ptr<const SwapPictures> pictures) : m_pictures(std::move(pictures)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    shown(mode).paint(painter, rect, Qt::AlignCenter, mode, state);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return shown(mode).pixmap(size, 1.0, mode, state); // in pixels of the device
  }
  QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return shown(mode).actualSize(size, mode, state);
  }
  QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override {
    return shown(mode).availableSizes(mode, state);
  }
  QString iconName() override { return m_pictures->source.name(); }
  QIconEngine* clone() const override { return new SwapIconEngine(m_pictures); }

private:
  const QIcon& shown(QIcon::Mode mode) const {
    if (mode == QIcon::Disabled)
      return m_pictures->source;
    return m_pictures->showsActive ? m_pictures->active : m_pictures->normal;
  }

  std::shared_ptr<const SwapPictures> m_pictures;
};

} // namespace

// --- making actions and icons

QAction* ToolButton::CreateToolButtonAction(QWidget* parent, const QString& normalIcon,
                                            const QString& activeIcon, const QString& text,
                                            const QString& toolTip, QObject* receiver, const char* member,
                                            bool checkable, bool checked) {
  return CreateToolButtonAction(parent, CreateToolButtonIcon(normalIcon, activeIcon), text, toolTip, receiver,
                                member, checkable, checked);
}

QAction* ToolButton::CreateToolButtonAction(QWidget* parent, const QIcon& icon, const QString& text,
                                            const QString& toolTip, QObject* receiver, const char* member,
                                            bool checkable, bool checked) {
  auto* const action = new QAction(icon, text, parent);
  if (receiver && member)
    connect(action, SIGNAL(triggered()), receiver, member);
  action->setToolTip(toolTip);
  action->setCheckable(checkable);
  action->setChecked(checked);
  return action;
}

QIcon ToolButton::CreateToolButtonIcon(const QString& normalIcon, const QString& activeIcon) {
  QIcon icon;
  if (!normalIcon.isEmpty())
    icon.addFile(normalIcon, QSize(), QIcon::Normal);
  if (!activeIcon.isEmpty())
    icon.addFile(activeIcon, QSize(), QIcon::Active);
  return icon;
}

// --- icons

void ToolButton::SetKeepIcon(bool keep) { d->keepIcon = keep; }

bool ToolButton::KeepIcon() const { return d->keepIcon; }

void ToolButton::InitIcons() {
  d->adoptIcon();
  if (d->source.isNull() || !d->normalPixmap.isNull())
    return;
  d->picturesFor = iconSize();
  d->picturesRatio = devicePixelRatioF();
  const auto render = [this](const QSize& size, QIcon::Mode mode) {
    return d->source.pixmap(size, d->picturesRatio, mode, QIcon::On);
  };
  d->normalPixmap = render(pictureSize, QIcon::Normal);
  d->activePixmap = render(pictureSize, QIcon::Active);
  if (d->activePixmap.isNull())
    d->activePixmap = d->normalPixmap;
  if (icon().cacheKey() != d->swapIcon.cacheKey())
    d->makeSwapIcon();
  d->pictures->normal = QIcon(d->normalPixmap);
  d->pictures->active = QIcon(d->activePixmap);
  // Scaled pictures are not sharp.
  if (d->picturesFor != pictureSize) {
    d->pictures->normal.addPixmap(render(d->picturesFor, QIcon::Normal));
    d->pictures->active.addPixmap(render(d->picturesFor, QIcon::Active));
  }
}

void ToolButtonPrivate::makeSwapIcon() {
  pictures = std::make_shared<SwapPictures>();
  pictures->source = pictures->normal = pictures->active = source; // rendered when they are needed
  swapIcon = QIcon(new SwapIconEngine(pictures));
}

void ToolButtonPrivate::wrapIcon() {
  const qint64 before = source.cacheKey();
  adoptIcon();
  if (source.isNull() || button->icon().cacheKey() == swapIcon.cacheKey())
    return;
  if (!pictures || source.cacheKey() != before)
    makeSwapIcon();
  button->setIcon(swapIcon);
}

// Another icon would have the toolbar laid out anew.
void ToolButton::IconState(bool hovered) {
  d->iconActive = hovered;
  InitIcons();
  if (d->keepIcon || d->normalPixmap.isNull() || d->activePixmap.isNull())
    return;
  const bool active = hovered && isEnabled() && !d->looksDisabled();
  const bool changes = std::exchange(d->pictures->showsActive, active) != active;
  if (icon().cacheKey() != d->swapIcon.cacheKey())
    setIcon(d->swapIcon);
  else if (changes)
    update();
}

bool ToolButton::Hovered() const { return rect().contains(mapFromGlobal(QCursor::pos())); }

void ToolButton::changeEvent(QEvent* event) {
  QToolButton::changeEvent(event);
  // Pictures of icons that follow the palette do not follow it themselves.
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
    d->renewPictures();
}

// --- the lock

void ToolButton::SetLocked(bool locked) {
  d->locked = locked;
  if (locked)
    setDown(false);
  EnableTooltip(d->tooltipEnabled);
  if (!d->normalPixmap.isNull())
    IconState(d->iconActive);
  update();
  announceEnabledState(*this);
}

void ToolButton::initStyleOption(QStyleOptionToolButton* option) const {
  QToolButton::initStyleOption(option);
  if (d->looksDisabled())
    option->state &= ~(QStyle::State_Enabled | QStyle::State_MouseOver | QStyle::State_Raised);
}

bool ToolButton::IsLocked() const { return d->locked; }

void ToolButton::UpdateLicenseLock() {
  const auto* const command = dynamic_cast<const CommandBase*>(d->action.data());
  if (!command || !command->isPaidFeature())
    return;
  connect(&LicenseService::Instance(), &LicenseService::stateChanged, this, &ToolButton::UpdateLicenseLock,
          Qt::UniqueConnection);
  if (d->isUnlicensed()) {
    SetLocked(true);
    AddLockIcon();
  } else if (d->lockLabel) {
    RemoveLockIcon();
    SetLocked(d->lockedForExtendMode);
  }
}

void ToolButton::AddLockIcon() {
  if (d->lockLabel)
    return;
  // A disabled rich tooltip would keep the badge's tooltip from being shown.
  if (d->tooltipObject)
    d->tooltipObject->Detach();
  d->lockLabel = License::attachLockBadge(
      this, QStringLiteral(":/resources/images/lock_normal.png"), QPoint(0, 0),
      tr("This is a paid feature. \nPlease purchase or activate your license first."));
}

void ToolButton::RemoveLockIcon() {
  if (!d->lockLabel)
    return;
  License::removeLockBadge(this);
  if (d->tooltipObject)
    d->tooltipObject->AttachTo(this);
}

// --- tooltips

void ToolButton::EnableTooltip(bool enable) {
  d->tooltipEnabled = enable;
  if (d->tooltipObject)
    d->tooltipObject->SetEnableTooltip(enable && !d->locked);
}

void ToolButton::RefreshTooltip() {
  if (d->action)
    d->tooltipText = d->action->toolTip();
  if (d->tooltipObject)
    d->tooltipObject->SetTooltipText(d->tooltipText.isEmpty() ? QString() : d->tooltipText);
}

void ToolButton::RaiseTooltip() {
  if (d->tooltipObject && d->tooltipObject->IsVisible())
    d->tooltipObject->GetArrowedWindow()->raise();
}

void ToolButton::SetTooltipParameters(const SArrowParam& arrow, EDirection direction, int distance,
                                      EWidgetsAlign alignment, const QPoint& offset) {
  if (d->tooltipObject)
    d->tooltipObject->SetTooltipPlacement(arrow, direction, distance, alignment, offset);
}

void ToolButton::SetPosParameters(WidgetPosCalculator& calculator, EDirection direction, int distance,
                                  EWidgetsAlign alignment, const QPoint& offset) {
  calculator.SetDirection(direction);
  calculator.SetBaseOffset(distance);
  calculator.SetAlignment(alignment);
  calculator.SetAdditionalOffset(offset);
}

} // namespace Vela::UiBase
