// SPDX-License-Identifier: MIT
#include <support/input.h>
#include <support/rows.h>
#include <support/test_case.h>
#include <vlk_license/license_service.h>
#include <vlk_license/lock_badge.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QToolButton>

using namespace Vela::License;

namespace {

const char* const LOCK = ":/resources/images/lock_normal.png";

/// Takes one key; what it says is set by the test.
class KeyProvider : public ILicenseProvider {
public:
  explicit KeyProvider(ELicenseState state) : m_state(state) {}

  ELicenseState state() const override { return m_state; }
  bool activate(const QString& key, QString* error) override {
    lastKey = key;
    if (key != QLatin1String("GOOD-KEY")) {
      *error = rejection;
      return false;
    }
    m_state = FullLicense;
    return true;
  }
  int trialDaysLeft() const override { return daysLeft; }

  void setState(ELicenseState state) { m_state = state; }

  QString lastKey;
  QString rejection = QStringLiteral("No such key.");
  int daysLeft = -1;

private:
  ELicenseState m_state;
};

KeyProvider* installProvider(ELicenseState state) {
  auto provider = std::make_unique<KeyProvider>(state);
  KeyProvider* const result = provider.get();
  LicenseService::Instance().setProvider(std::move(provider));
  return result;
}

/// What a user does with the modal windows that come up, one after another; each step runs when its window is
/// there. A window nobody expects is closed, so that a failing test ends.
class User : public QObject {
public:
  using Step = std::function<void(QDialog*)>;

  explicit User(QList<Step> steps) : m_steps(std::move(steps)) {
    m_watch.setInterval(1);
    connect(&m_watch, &QTimer::timeout, this, &User::look);
    m_watch.start();
  }

  bool isDone() const { return m_steps.isEmpty() && !m_surprised; }

private:
  void look() {
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || dialog == m_handled || !QTest::qWaitForWindowExposed(dialog))
      return;
    m_handled = dialog;
    if (m_steps.isEmpty()) {
      m_surprised = true;
      dialog->reject();
      return;
    }
    m_steps.takeFirst()(dialog);
    if (QTest::currentTestFailed() && m_handled != nullptr)
      m_handled->reject();
  }

  QList<Step> m_steps;
  QTimer m_watch;
  QPointer<QDialog> m_handled;
  bool m_surprised = false;
};

void type(QDialog* dialog, const QString& text) {
  for (const QChar letter : text)
    QTest::keyClick(dialog->windowHandle(), letter.toLatin1());
}

template <class T>
T* child(const QWidget* dialog, const char* name) {
  return dialog->findChild<T*>(QLatin1String(name));
}

QString errorText(const QDialog* dialog) {
  const auto* label = child<QLabel>(dialog, "license_error_label");
  return label->isVisible() ? label->text() : QString();
}

} // namespace

class LicenseTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void cleanup() {
    LicenseService::Instance().setProvider(nullptr);
    m_window.reset();
  }

  void activationReportsItsReason() {
    auto& service = LicenseService::Instance();
    KeyProvider* provider = installProvider(NoLicense);
    QString error;
    QVERIFY(!service.activate("  ", &error) && !error.isEmpty());
    QVERIFY(provider->lastKey.isEmpty());
    QVERIFY(!service.activate("bad", &error));
    QCOMPARE(error, "No such key.");
    provider->rejection.clear();
    QVERIFY(!service.activate("bad", &error) && !error.isEmpty());
    QSignalSpy changed(&service, &LicenseService::stateChanged);
    QVERIFY(service.activate(" GOOD-KEY\n"));
    QCOMPARE(provider->lastKey, "GOOD-KEY");
    QCOMPARE(changed.count(), 1);
    QVERIFY(service.isLicensed());
  }

  void theQuestionBeforeAPaidFeature_data() {
    const Vela::Test::Rows<ELicenseState, QList<User::Step>, bool> row("state", "steps", "answer");
    const auto box = [](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
      return [=](QDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), "Paid Feature");
        QVERIFY(qobject_cast<QMessageBox*>(dialog)->text().contains(QLatin1String("Cut & Fill")));
        Vela::Test::pressKey(*dialog, key, modifiers);
      };
    };
    const auto licenceDialog = [](const char* key, const char* error) {
      return [=](QDialog* dialog) {
        QVERIFY(dialog->isModal());
        type(dialog, QLatin1String(key));
        if (*key)
          Vela::Test::pressKey(*dialog, Qt::Key_Return);
        if (*error)
          QCOMPARE(errorText(dialog), QLatin1String(error));
        Vela::Test::pressKey(*dialog, Qt::Key_Escape);
      };
    };
    const auto closeWindow = [this](QDialog*) { m_window.reset(); };
    row("trial, yes is the default", TrialLicense, {box(Qt::Key_Return)}, true);
    row("trial, N", TrialLicense, {box(Qt::Key_N, Qt::AltModifier)}, false);
    row("trial, closed with its window", TrialLicense, {closeWindow}, false);
    row("none, closed with its window", NoLicense, {closeWindow}, false);
    row("none, good key", NoLicense, {box(Qt::Key_Return), licenceDialog("GOOD-KEY", "")}, true);
    row("none, bad key", NoLicense, {box(Qt::Key_Return), licenceDialog("BAD-KEY", "No such key.")}, false);
    row("full", FullLicense, {}, true);
  }
  void theQuestionBeforeAPaidFeature() {
    QFETCH(ELicenseState, state);
    QFETCH(QList<User::Step>, steps);
    QFETCH(bool, answer);
    installProvider(state);
    m_window = std::make_unique<QWidget>();
    m_window->show();
    const User user(steps);
    auto& service = LicenseService::Instance();
    QCOMPARE(service.confirmPaidFeature(m_window.get(), "&Cut && Fill"), answer);
    QVERIFY(user.isDone());
  }

  void dialogIsOperatedByKeyboard() {
    KeyProvider* provider = installProvider(TrialLicense);
    provider->daysLeft = 12;
    const User user({[](QDialog* dialog) {
      auto* const key = child<QLineEdit>(dialog, "license_key_edit");
      auto* const activate = child<QPushButton>(dialog, "license_activate_button");
      auto* const close = child<QPushButton>(dialog, "license_close_button");
      auto* const state = child<QLabel>(dialog, "license_state_label");
      QVERIFY(key->hasFocus() && !activate->isEnabled() && close->isDefault());
      QVERIFY2(state->text().contains(QLatin1String("12")), qPrintable(state->text()));
      const auto widgets = dialog->findChildren<QWidget*>();
      for (const QWidget* widget : widgets)
        QVERIFY(widget->focusPolicy() == Qt::NoFocus || !widget->isVisible() ||
                !QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget))
                     ->text(QAccessible::Name)
                     .isEmpty());

      type(dialog, "BAD");
      QVERIFY(activate->isEnabled() && activate->isDefault());
      Vela::Test::pressKey(*dialog, Qt::Key_A, Qt::AltModifier);
      QTRY_COMPARE(errorText(dialog), "No such key.");
      QCOMPARE(key->selectedText(), "BAD");

      type(dialog, "G");
      QVERIFY(errorText(dialog).isEmpty());
      type(dialog, "OOD-KEY");
      Vela::Test::pressKey(*dialog, Qt::Key_Tab);
      QVERIFY(activate->hasFocus());
      Vela::Test::pressKey(*dialog, Qt::Key_Space);
      QVERIFY(LicenseService::Instance().isLicensed());
      QVERIFY(dialog->isVisible() && close->hasFocus() && key->text().isEmpty());
      QVERIFY(!errorText(dialog).isEmpty());
      QVERIFY(!state->text().contains(QLatin1String("12")));
      Vela::Test::pressKey(*dialog, Qt::Key_Return);
      QVERIFY(!dialog->isVisible());
    }});
    LicenseService::Instance().showLicenseDialog(nullptr);
    QVERIFY(user.isDone());
  }

  void aBadgeHoldsTheTooltipUntilItIsRemoved() {
    QAction action;
    action.setToolTip("Before");
    QToolButton button;
    button.setDefaultAction(&action);
    button.resize(50, 50);
    button.show();
    QPointer<QLabel> badge = attachLockBadge(&button, QLatin1String(LOCK), {3, 4}, "Locked");
    QVERIFY(badge->isVisible());
    QCOMPARE(badge->pixmap().devicePixelRatio(), button.devicePixelRatio());
    QSignalSpy clicked(&button, &QToolButton::clicked);
    Vela::Test::click(*badge);
    QCOMPARE(clicked.count(), 1);

    action.setToolTip("After");
    QCOMPARE(button.toolTip(), "Locked");
    QCOMPARE(attachLockBadge(&button, QLatin1String(LOCK), {8, 8}, "Still locked"), badge);
    QCOMPARE(button.toolTip(), "Still locked");
    removeLockBadge(&button);
    QVERIFY(badge.isNull());
    QCOMPARE(button.toolTip(), "After");
  }

private:
  std::unique_ptr<QWidget> m_window;
};

VELA_TEST_MAIN(LicenseTest)
#include "license_test.moc"
