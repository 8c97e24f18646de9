// SPDX-License-Identifier: MIT
#include <support/test_case.h>
#include <ui_base/assistants/text_match.h>

using namespace Vela::UiBase;

/// What people type against the names of commands.
class TextMatchTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void theBestAnswerIsFound_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("first"); // empty: no answer
    const auto row = [](const char* typed, const char* first) {
      QTest::newRow(typed) << QString::fromUtf8(typed) << QString::fromUtf8(first);
    };
    row("smooth", "Smooth");                // the shorter one
    row("mesh inf", "Mesh Information");    // words
    row("inf mesh", "Mesh Information");    // in any order
    row("ssm", "Save &Screenshot as Mesh"); // initials, words left out
    row("scrshot", "Save &Screenshot as Mesh");
    row("smoth", "Smooth");   // a letter lacks
    row("smmooth", "Smooth"); // is too much
    row("smooht", "Smooth");  // changed places
    row("smopth", "Smooth");  // is wrong
    row("offnen", "Öffnen…");
    row("ÖFF", "Öffnen…");
    row("strasse", "Straße");
    row("fit", "ZoomToFit"); // capitals begin words
    row("mation", "Mesh Information");
    row("xyz", "");
    row("smxxth", "");
  }
  void theBestAnswerIsFound() {
    QFETCH(QString, typed);
    QFETCH(QString, first);
    const QStringList names{QStringLiteral("Smooth Mesh"),
                            QStringLiteral("Save &Screenshot as Mesh"),
                            QStringLiteral("Mesh Information"),
                            QStringLiteral("Öffnen…"),
                            QStringLiteral("Straße"),
                            QStringLiteral("ZoomToFit"),
                            QStringLiteral("Smooth")};
    int best = 0;
    QStringList answers{QString()};
    for (const QString& name : names) {
      const int quality = matchQuality(MatchText(typed), MatchText(name));
      if (quality > best)
        answers.clear();
      if (quality >= best && quality > 0)
        answers.append(name);
      best = std::max(best, quality);
    }
    QCOMPARE(answers, QStringList(first));
  }
};

VELA_TEST_MAIN(TextMatchTest)
#include "text_match_test.moc"
