// SPDX-License-Identifier: MIT
#include "license_dialog.h"

#include "license_service.h"

#include <vlk_common_res/styles.h>

#include <QAccessible>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace Vela::License {

namespace {

constexpr int DIALOG_WIDTH = 420;

QLabel* makeLabel(const char* objectName, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(objectName));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

} // namespace

LicenseDialog::LicenseDialog(LicenseService& service, QWidget* parent) : QDialog(parent), m_service(service) {
  setObjectName(QStringLiteral("license_dialog"));
  setWindowTitle(tr("License"));
  setModal(true);
  buildWidgets();
  buildLayout();
  applyLooks();
  updateState();
  onKeyEdited({});
  m_key->setFocus();

  connect(&m_service, &LicenseService::stateChanged, this, &LicenseDialog::updateState);
  connect(&Resource::Styles::Instance(), &Resource::Styles::changed, this, &LicenseDialog::applyLooks);
  connect(m_key, &QLineEdit::textEdited, this, &LicenseDialog::onKeyEdited);
  connect(m_activate, &QPushButton::clicked, this, &LicenseDialog::onActivate);
  connect(m_close, &QPushButton::clicked, this, &LicenseDialog::reject);
}

void LicenseDialog::buildWidgets() {
  m_title = makeLabel("title_label", this);
  const QString product = m_service.provider().productName();
  m_title->setText(product.isEmpty() ? tr("License") : tr("License of %1").arg(product));
  m_state = makeLabel("license_state_label", this);

  m_productPage = makeLabel("license_product_page_label", this);
  m_productPage->setTextFormat(Qt::RichText);
  m_productPage->setText(productPageText());
  m_productPage->setOpenExternalLinks(true);
  m_productPage->setTextInteractionFlags(Qt::TextBrowserInteraction);
  m_productPage->setAccessibleName(tr("Product page"));
  m_productPage->setVisible(!m_productPage->text().isEmpty());

  m_keyLabel = makeLabel("license_key_label", this);
  m_keyLabel->setText(tr("License &key:"));
  m_key = new QLineEdit(this);
  m_key->setObjectName(QStringLiteral("license_key_edit"));
  m_key->setAccessibleName(tr("License key"));
  m_key->setPlaceholderText(tr("Paste or type your key"));
  m_keyLabel->setBuddy(m_key);

  m_message = makeLabel("license_error_label", this);
  m_message->setAccessibleName(tr("Result of the activation"));
  m_message->hide();

  m_activate = new QPushButton(tr("&Activate"), this);
  m_activate->setObjectName(QStringLiteral("license_activate_button"));
  m_close = new QPushButton(tr("&Close"), this);
  m_close->setObjectName(QStringLiteral("license_close_button"));
}

void LicenseDialog::buildLayout() {
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(m_activate, QDialogButtonBox::ActionRole);
  buttons->addButton(m_close, QDialogButtonBox::RejectRole);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(20, 18, 20, 18);
  layout->setSpacing(8);
  layout->addWidget(m_title);
  layout->addWidget(m_state);
  layout->addWidget(m_productPage);
  layout->addSpacing(8);
  layout->addWidget(m_keyLabel);
  layout->addWidget(m_key);
  layout->addWidget(m_message);
  layout->addStretch();
  layout->addSpacing(8);
  layout->addWidget(buttons);
  setMinimumWidth(DIALOG_WIDTH);

  setTabOrder(m_key, m_activate);
  setTabOrder(m_activate, m_close);
  setTabOrder(m_close, m_productPage);
}

void LicenseDialog::applyLooks() {
  const auto& styles = Resource::Styles::Instance();
  const QPointer<QWidget> focused(focusWidget());
  setPalette(styles.widgetPalette());
  setStyleSheet(styles.DialogGeneral());
  // The box hides its buttons and shows them again when the style changes.
  if (focused && focusWidget() != focused)
    focused->setFocus(Qt::OtherFocusReason);
  m_productPage->setText(productPageText());
  showMessage(m_message->text(), m_messageIsError);
}

void LicenseDialog::updateState() { m_state->setText(stateText()); }

void LicenseDialog::onKeyEdited(const QString& key) {
  const bool hasKey = !key.trimmed().isEmpty();
  m_activate->setEnabled(hasKey);
  (hasKey ? m_activate : m_close)->setDefault(true);
  showMessage({}, false);
}

void LicenseDialog::onActivate() {
  QString error;
  if (m_service.activate(m_key->text(), &error)) {
    m_key->clear();
    onKeyEdited({});
    showMessage(tr("Thank you. Your license key has been activated."), false);
    m_close->setFocus();
    return;
  }
  showMessage(error, true);
  m_key->setFocus();
  m_key->selectAll();
}

void LicenseDialog::showMessage(const QString& text, bool isError) {
  const auto& styles = Resource::Styles::Instance();
  m_messageIsError = isError;
  m_message->setText(text);
  m_message->setAccessibleDescription(text);
  m_message->setStyleSheet(QStringLiteral("QLabel { color: %1; }")
                               .arg((isError ? styles.ColorTextError() : styles.ColorText()).name()));
  m_message->setVisible(!text.isEmpty());
  if (!text.isEmpty()) {
    QAccessibleEvent alert(m_message, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
  }
}

QString LicenseDialog::stateText() const {
  switch (m_service.state()) {
  case FullLicense:
    return tr("The product is licensed. All features are available.");
  case TrialLicense: {
    const int days = m_service.provider().trialDaysLeft();
    return days < 0 ? tr("You are using a trial. Paid features can be tried.")
                    : tr("You are using a trial. Days left: %1.").arg(days);
  }
  case NoLicense:
    break;
  }
  return tr("There is no license. Paid features are locked.");
}

QString LicenseDialog::productPageText() const {
  const QUrl page = m_service.provider().productPage();
  if (!page.isValid() || page.isEmpty())
    return {};
  return QStringLiteral("<a href=\"%1\" style=\"color: %2\">%3</a>")
      .arg(page.toString(QUrl::FullyEncoded).toHtmlEscaped(), palette().color(QPalette::Link).name(),
           tr("Buy a license on the product page").toHtmlEscaped());
}

} // namespace Vela::License
