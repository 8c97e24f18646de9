// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/core/language.h>

using namespace Vela::UiBase;

class LanguageTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void textsAreToldAgainWhileTheirOwnerLives() {
    const QLocale before;
    LanguageTranslator translator;
    const QPointer<QObject> owner = new QObject;
    int told = 0;
    keepTranslated(owner, [&told] { ++told; });
    const auto watches = qApp->children().size();
    keepTranslated(nullptr, [&told] { ++told; }); // once, as there is nobody to live
    QCOMPARE(told, 2);
    translator.setLocale(QLocale::c());
    QCOMPARE(told, 3);
    keepTranslated(owner, [&told, owner] {
      ++told;
      delete owner;
    });
    QCOMPARE(qApp->children().size(), watches); // one for all
    translator.setLocale(QLocale::c());
    QCOMPARE(told, 4);
    translator.setLocale(before);
    QCOMPARE(told, 4);
  }

  void textsOfALanguageComeAndGo() {
    if (!QFile::exists(":/vlk_ui_base/translations/vlk_ui_base_de.qm"))
      QSKIP("built without Qt's tools for translations");
    const QLocale before;
    QLabel label;
    QLabel own;
    own.setLocale(QLocale::French);
    {
      LanguageTranslator translator;
      translator.addQtTexts();
      translator.setLocale(QLocale::German);
      QVERIFY(!translator.isEmpty() && translator.locale() == QLocale::German);
      QCOMPARE(QCoreApplication::translate("Vela::UiBase::FlyoutBase", "Apply"), QString("Anwenden"));
      QCOMPARE(label.locale().language(), QLocale::German);
      QCOMPARE(own.locale().language(), QLocale::French);
      translator.setLocale(QLocale::English);
      QCOMPARE(QCoreApplication::translate("Vela::UiBase::FlyoutBase", "Apply"), QString("Apply"));
      QCOMPARE(label.locale().language(), QLocale::English);
      translator.setLocale(QLocale::German);
    }
    QCOMPARE(QCoreApplication::translate("Vela::UiBase::FlyoutBase", "Apply"), QString("Apply"));
    QLocale::setDefault(before);
  }

  void mnemonicsAreNotRead() {
    QCOMPARE(withoutMnemonic("&Open"), QString("Open"));
    QCOMPARE(withoutMnemonic("Cut && &paste &"), QString("Cut & paste "));
  }
};

VELA_TEST_MAIN(LanguageTest)
#include "language_test.moc"
