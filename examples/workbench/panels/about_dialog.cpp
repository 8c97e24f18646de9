// SPDX-License-Identifier: MIT
#include "about_dialog.h"

#include <ui_base/core/language.h>
#include <ui_base/views/qt_ui_toolkit.h>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>

namespace Workbench {

using namespace Vela::UiBase;

namespace {

constexpr int LogoSize = 64;   // px
constexpr int TextWidth = 340; // px

class Logo : public QWidget {
public:
  explicit Logo(QWidget* parent)
      : QWidget(parent), m_icon(QtUiToolkit::Instance().CreateIcon(QStringLiteral("smooth_shading"))) {
    setFixedSize(LogoSize, LogoSize);
  }

protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    m_icon.paint(&painter, rect());
  }

private:
  const QIcon m_icon;
};

QLabel* paragraph(const std::function<QString()>& text, QWidget* parent) {
  auto* const label = new QLabel(parent);
  keepTranslated(label, [label, text] { label->setText(text()); });
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setFixedWidth(TextWidth);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

} // namespace

AboutDialog::AboutDialog(QWidget* parent) : MDialogBase(parent) {
  keepTranslated(this, [this] { SetTitle(tr("About Workbench")); });
  auto* const content = new QWidget;
  auto* const row = new QHBoxLayout(content);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(16);
  row->addWidget(new Logo(content), 0, Qt::AlignTop);
  auto* const column = new QVBoxLayout;
  row->addLayout(column);
  auto* const name = paragraph(
      [] { return tr("<b>Workbench %1</b>").arg(QCoreApplication::applicationVersion()); }, content);
  name->setTextFormat(Qt::RichText);
  column->addWidget(name);
  column->addWidget(paragraph(
      [] {
        return tr("Shows what the vlk_ui_base library is for: a command opens a mesh on another "
                  "thread, a view shows it, tools and flyouts change it, popups stand beside "
                  "what opened them, and every step can be undone.");
      },
      content));
  column->addWidget(paragraph([] { return tr("Licence: MIT. © 2026 The vlk_ui_base authors"); }, content));
  column->addWidget(
      paragraph([] { return tr("Runs with Qt %1").arg(QString::fromLatin1(qVersion())); }, content));
  column->addStretch(1);
  SetContent(content);
  QPushButton* const close = AddButton(QString(), QDialogButtonBox::RejectRole);
  keepTranslated(close, [close] { close->setText(tr("Close")); });
  SetDefaultButton(close);
}

} // namespace Workbench
