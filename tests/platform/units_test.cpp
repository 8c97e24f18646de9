// SPDX-License-Identifier: MIT
#include <qskrccommon/tolerance.h>
#include <qskrccommon/units.h>
#include <support/rows.h>
#include <support/test_case.h>

#include <limits>

using namespace Vela::Common;

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double LARGEST = std::numeric_limits<double>::max();

/// Checks that every unit has texts of its own and that converting there and back gives the value again.
template <class Unit>
void checkAllUnits(std::span<const Unit> units) {
  QStringList symbols;
  for (const Unit unit : units) {
    QVERIFY(!unitName(unit).isEmpty());
    QVERIFY2(!symbols.contains(unitSymbol(unit)), qPrintable(unitSymbol(unit)));
    symbols += unitSymbol(unit);
    QCOMPARE(convert(0.1, unit, unit), 0.1);
    for (const Unit other : units)
      QVERIFY(isEqual(convert(convert(12.3, unit, other), other, unit), 12.3, {0, 1e-15}));
  }
}

} // namespace

class UnitsTest : public Vela::Test::TestCase {
  Q_OBJECT

private Q_SLOTS:
  void comparesWithTolerance_data() {
    // The sign of a - b, 2 when unordered.
    const Vela::Test::Rows<double, double, double, double, int> row("a", "b", "absolute", "relative", "sign");
    row("sum of decimals", 0.1 + 0.2, 0.3, 1e-9, 1e-9, 0);
    row("absolute wins near zero", 1e-12, -1e-12, 1e-9, 1e-9, 0);
    row("relative to the larger", 100.0, 90.0, 0, 0.1, 0);
    row("infinite tolerance keeps infinity apart", 0, INFINITE, INFINITE, 0, -1);
    row("difference overflows", -LARGEST, LARGEST, 1, 0.5, -1);
    row("NaN and a number", NOT_A_NUMBER, 1.0, INFINITE, 1, 2);
  }

  void comparesWithTolerance() {
    QFETCH(double, a);
    QFETCH(double, b);
    QFETCH(double, absolute);
    QFETCH(double, relative);
    QFETCH(int, sign);
    const Tolerance tolerance{absolute, relative};
    QCOMPARE(isLess(a, b, tolerance), sign == -1);
    QCOMPARE(isEqual(a, b, tolerance), sign == 0);
    QCOMPARE(isGreater(a, b, tolerance), sign == 1);
    QCOMPARE(isEqual(b, a, tolerance), sign == 0);
    QCOMPARE(isLess(b, a, tolerance), sign == 1);
  }

  void everyUnitIsComplete() {
    checkAllUnits(lengthUnits());
    checkAllUnits(areaUnits());
    checkAllUnits(volumeUnits());
    QCOMPARE(convert(5, Kilometre, Inch), 5e6 / 25.4);
    QCOMPARE(convert(1, SquareInch, SquareCentimetre), 6.4516);
    QCOMPARE(convert(1, CubicInch, Millilitre), 16.387064);
    QVERIFY(qIsNaN(convert(1, static_cast<EVolumeUnit>(99), Litre)));
  }

  void formatsNumbers_data() {
    const Vela::Test::Rows<double, int, QString> table("value", "digits", "text");
    const auto row = [&table](double value, int digits, const char* text) {
      table(text, value, digits, text);
    };
    row(1234567.8, 4, "1,234,568");
    row(9.9996, 4, "10");
    row(0.0000462, 4, "4.62\u00a0×\u00a010⁻⁵");
    row(0.1 + 0.2, 15, "0.3");
    row(-0.0, 4, "0");
    row(-1.5e17, 3, "-1.5\u00a0×\u00a010¹⁷");
    row(-INFINITE, 4, "-∞");
    row(NOT_A_NUMBER, 4, "");
  }

  void formatsNumbers() {
    QFETCH(double, value);
    QFETCH(int, digits);
    QTEST(formatNumber(value, QLocale(QLocale::English, QLocale::UnitedStates), digits), "text");
  }

  void formatsValuesAsTheLocaleWrites() {
    const QLocale german(QLocale::German, QLocale::Germany);
    QCOMPARE(formatValue(1234.56, CubicMillimetre, german, 5), QStringLiteral("1.234,6\u00a0mm³"));
  }
};

VELA_TEST_MAIN(UnitsTest)
#include "units_test.moc"
