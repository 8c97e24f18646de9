// SPDX-License-Identifier: MIT
#include "key_probe.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QVBoxLayout>

namespace Vela::UiBase {

class KeyProbePrivate {
public:
  QPointer<QWidget> window;
  QLabel* label; // child of the probe
};

namespace {

QString lineOf(const KeyTaker& taker, bool gets) {
  const QString kinds[] = {KeyProbe::tr("The focus"), KeyProbe::tr("Panel"),   KeyProbe::tr("Menu"),
                           KeyProbe::tr("Command"),   KeyProbe::tr("Library"), KeyProbe::tr("What is left")};
  const QString why = gets ? KeyProbe::tr("gets it") : taker.why;
  const QString line = QStringLiteral("%1: %2").arg(kinds[taker.kind], taker.name);
  return why.isEmpty() ? line : QStringLiteral("%1 – %2").arg(line, why);
}

QString describe(const QKeySequence& keys, const KeyAnswer& answer) {
  QStringList lines{keys.toString(QKeySequence::NativeText)};
  for (int i = 0; i < answer.takers.size(); ++i)
    lines.append(lineOf(answer.takers[i], i == answer.receiver));
  if (answer.isAmbiguous)
    lines.append(KeyProbe::tr("It means several things: nobody gets it."));
  else if (answer.receiver < 0)
    lines.append(KeyProbe::tr("Nobody takes it."));
  return lines.join(u'\n');
}

} // namespace

KeyProbe::KeyProbe(QWidget& window, QWidget* parent)
    : QWidget(parent), d(std::make_unique<KeyProbePrivate>()) {
  d->window = &window;
  d->label = new QLabel(tr("Press any key."), this);
  d->label->setTextFormat(Qt::PlainText);
  d->label->setWordWrap(true);
  d->label->setAlignment(Qt::AlignTop | Qt::AlignLeading);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(d->label);
  setFocusPolicy(Qt::StrongFocus);
  setAccessibleName(tr("Press any key."));
}

KeyProbe::~KeyProbe() = default;

QSize KeyProbe::sizeHint() const { return {420, 180}; }

QString KeyProbe::text() const { return d->label->text(); }

void KeyProbe::ask(const QKeySequence& keys) {
  if (!d->window)
    return;
  const KeyAnswer answer = whoTakes(keys, *d->window);
  d->label->setText(describe(keys, answer));
  setAccessibleDescription(d->label->text());
  QAccessibleEvent told(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&told);
}

bool KeyProbe::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept(); // no shortcut shall run
    return true;
  }
  return QWidget::event(event);
}

void KeyProbe::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key != 0 && key != Qt::Key_unknown && key != Qt::Key_Shift && key != Qt::Key_Control &&
      key != Qt::Key_Meta && key != Qt::Key_AltGr)
    ask(key == Qt::Key_Alt ? QKeySequence(Qt::Key_Alt) : QKeySequence(event->keyCombination()));
}

void KeyProbe::paintEvent(QPaintEvent*) {
  if (!hasFocus())
    return;
  QPainter painter(this);
  QStyleOptionFocusRect option;
  option.initFrom(this);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

} // namespace Vela::UiBase
