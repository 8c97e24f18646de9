// SPDX-License-Identifier: MIT
#include "units.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace Vela::Common {

namespace {

constexpr char CONTEXT[] = "Vela::Common::Units";

template <class Unit>
struct UnitRow {
  Unit unit;
  double factor; // what one of the unit is in the base unit of its table
  const char* name;
  const char* symbol;
};

// The factors of a table share a base in which all of them are whole numbers or nearly so; conversions
// between neighbours are then exact.
constexpr std::array LENGTHS{
    UnitRow<ELengthUnit>{Micrometre, 1, QT_TRANSLATE_NOOP("Vela::Common::Units", "micrometres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "µm")},
    UnitRow<ELengthUnit>{Millimetre, 1e3, QT_TRANSLATE_NOOP("Vela::Common::Units", "millimetres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "mm")},
    UnitRow<ELengthUnit>{Centimetre, 1e4, QT_TRANSLATE_NOOP("Vela::Common::Units", "centimetres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "cm")},
    UnitRow<ELengthUnit>{Metre, 1e6, QT_TRANSLATE_NOOP("Vela::Common::Units", "metres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "m")},
    UnitRow<ELengthUnit>{Kilometre, 1e9, QT_TRANSLATE_NOOP("Vela::Common::Units", "kilometres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "km")},
    UnitRow<ELengthUnit>{Inch, 25400, QT_TRANSLATE_NOOP("Vela::Common::Units", "inches"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "in")},
    UnitRow<ELengthUnit>{Foot, 304800, QT_TRANSLATE_NOOP("Vela::Common::Units", "feet"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "ft")},
    UnitRow<ELengthUnit>{Yard, 914400, QT_TRANSLATE_NOOP("Vela::Common::Units", "yards"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "yd")},
};

constexpr std::array AREAS{
    UnitRow<EAreaUnit>{SquareMillimetre, 1e2, QT_TRANSLATE_NOOP("Vela::Common::Units", "square millimetres"),
                       QT_TRANSLATE_NOOP("Vela::Common::Units", "mm²")},
    UnitRow<EAreaUnit>{SquareCentimetre, 1e4, QT_TRANSLATE_NOOP("Vela::Common::Units", "square centimetres"),
                       QT_TRANSLATE_NOOP("Vela::Common::Units", "cm²")},
    UnitRow<EAreaUnit>{SquareMetre, 1e8, QT_TRANSLATE_NOOP("Vela::Common::Units", "square metres"),
                       QT_TRANSLATE_NOOP("Vela::Common::Units", "m²")},
    UnitRow<EAreaUnit>{SquareInch, 64516, QT_TRANSLATE_NOOP("Vela::Common::Units", "square inches"),
                       QT_TRANSLATE_NOOP("Vela::Common::Units", "in²")},
    UnitRow<EAreaUnit>{SquareFoot, 9290304, QT_TRANSLATE_NOOP("Vela::Common::Units", "square feet"),
                       QT_TRANSLATE_NOOP("Vela::Common::Units", "ft²")},
};

constexpr std::array VOLUMES{
    UnitRow<EVolumeUnit>{CubicMillimetre, 1e3, QT_TRANSLATE_NOOP("Vela::Common::Units", "cubic millimetres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "mm³")},
    UnitRow<EVolumeUnit>{CubicCentimetre, 1e6, QT_TRANSLATE_NOOP("Vela::Common::Units", "cubic centimetres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "cm³")},
    UnitRow<EVolumeUnit>{CubicMetre, 1e12, QT_TRANSLATE_NOOP("Vela::Common::Units", "cubic metres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "m³")},
    UnitRow<EVolumeUnit>{Millilitre, 1e6, QT_TRANSLATE_NOOP("Vela::Common::Units", "millilitres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "ml")},
    UnitRow<EVolumeUnit>{Litre, 1e9, QT_TRANSLATE_NOOP("Vela::Common::Units", "litres"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "l")},
    UnitRow<EVolumeUnit>{CubicInch, 16387064, QT_TRANSLATE_NOOP("Vela::Common::Units", "cubic inches"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "in³")},
    UnitRow<EVolumeUnit>{CubicFoot, 28316846592, QT_TRANSLATE_NOOP("Vela::Common::Units", "cubic feet"),
                         QT_TRANSLATE_NOOP("Vela::Common::Units", "ft³")},
};

constexpr const auto& tableOf(ELengthUnit) { return LENGTHS; }
constexpr const auto& tableOf(EAreaUnit) { return AREAS; }
constexpr const auto& tableOf(EVolumeUnit) { return VOLUMES; }

template <class Unit, std::size_t Size>
constexpr std::array<Unit, Size> unitsOf(const std::array<UnitRow<Unit>, Size>& table) {
  std::array<Unit, Size> units{};
  for (std::size_t i = 0; i < Size; ++i)
    units[i] = table[i].unit;
  return units;
}

constexpr auto LENGTH_UNITS = unitsOf(LENGTHS);
constexpr auto AREA_UNITS = unitsOf(AREAS);
constexpr auto VOLUME_UNITS = unitsOf(VOLUMES);

template <class Unit>
const UnitRow<Unit>* rowOf(Unit unit) {
  const auto& table = tableOf(unit);
  const auto found =
      std::find_if(table.begin(), table.end(), [unit](const auto& row) { return row.unit == unit; });
  return found == table.end() ? nullptr : &*found;
}

template <class Unit>
double convertBetween(double value, Unit from, Unit to) {
  const auto* source = rowOf(from);
  const auto* target = rowOf(to);
  if (source == nullptr || target == nullptr)
    return std::numeric_limits<double>::quiet_NaN();
  // Dividing the smaller factor into the larger one keeps ratios such as 1000 exact.
  return source->factor >= target->factor ? value * (source->factor / target->factor)
                                          : value / (target->factor / source->factor);
}

QString translated(const char* text) { return QCoreApplication::translate(CONTEXT, text); }

template <class Unit>
QString nameOf(Unit unit) {
  const auto* row = rowOf(unit);
  return row == nullptr ? QString() : translated(row->name);
}

template <class Unit>
QString symbolOf(Unit unit) {
  const auto* row = rowOf(unit);
  return row == nullptr ? QString() : translated(row->symbol);
}

template <class Unit>
QString format(double value, Unit unit, const QLocale& locale, int significantDigits) {
  const QString number = formatNumber(value, locale, significantDigits);
  const QString symbol = symbolOf(unit);
  return number.isEmpty() || symbol.isEmpty() ? QString() : number + QChar(QChar::Nbsp) + symbol;
}

constexpr int MAX_DIGITS = 15; // what a double holds of any decimal number
constexpr double SMALLEST_PLAIN = 1e-4;
constexpr double LARGEST_PLAIN = 1e15;

QString superscript(int number) {
  static const QString digits = QStringLiteral("⁰¹²³⁴⁵⁶⁷⁸⁹");
  QString text = number < 0 ? QStringLiteral("⁻") : QString();
  const QString plain = QString::number(std::abs(number));
  for (const QChar digit : plain)
    text += digits[digit.digitValue()];
  return text;
}

/// The decimals needed to show \a value with \a digits significant ones, without zeros at the end.
int decimalsFor(double value, int digits) {
  // The exponent is read after rounding, which may carry into another place (9.9996).
  const QByteArray rounded = QByteArray::number(value, 'e', digits - 1);
  const int exponent = rounded.mid(rounded.indexOf('e') + 1).toInt();
  int decimals = std::max(0, digits - 1 - exponent);
  const QByteArray plain = QByteArray::number(value, 'f', decimals);
  for (qsizetype i = plain.size() - 1; decimals > 0 && plain[i] == '0'; --i)
    --decimals;
  return decimals;
}

/// As in "4.62 × 10⁻⁵".
QString withPowerOfTen(double value, const QLocale& locale, int digits) {
  const QByteArray rounded = QByteArray::number(value, 'e', digits - 1);
  const qsizetype end = rounded.indexOf('e');
  const double mantissa = rounded.left(end).toDouble();
  return locale.toString(mantissa, 'f', decimalsFor(mantissa, digits)) + QChar(QChar::Nbsp) +
         QStringLiteral("×") + QChar(QChar::Nbsp) + QStringLiteral("10") +
         superscript(rounded.mid(end + 1).toInt());
}

} // namespace

double convert(double value, ELengthUnit from, ELengthUnit to) { return convertBetween(value, from, to); }
double convert(double value, EAreaUnit from, EAreaUnit to) { return convertBetween(value, from, to); }
double convert(double value, EVolumeUnit from, EVolumeUnit to) { return convertBetween(value, from, to); }

QString unitName(ELengthUnit unit) { return nameOf(unit); }
QString unitName(EAreaUnit unit) { return nameOf(unit); }
QString unitName(EVolumeUnit unit) { return nameOf(unit); }

QString unitSymbol(ELengthUnit unit) { return symbolOf(unit); }
QString unitSymbol(EAreaUnit unit) { return symbolOf(unit); }
QString unitSymbol(EVolumeUnit unit) { return symbolOf(unit); }

QString formatValue(double value, ELengthUnit unit, const QLocale& locale, int significantDigits) {
  return format(value, unit, locale, significantDigits);
}

QString formatValue(double value, EAreaUnit unit, const QLocale& locale, int significantDigits) {
  return format(value, unit, locale, significantDigits);
}

QString formatValue(double value, EVolumeUnit unit, const QLocale& locale, int significantDigits) {
  return format(value, unit, locale, significantDigits);
}

QString formatNumber(double value, const QLocale& locale, int significantDigits) {
  if (std::isnan(value))
    return {};
  if (std::isinf(value))
    return (value < 0 ? locale.negativeSign() : QString()) + QChar(0x221e);
  if (value == 0.0)
    return locale.toString(0);
  const int digits = std::clamp(significantDigits, 1, MAX_DIGITS);
  const double magnitude = std::fabs(value);
  if (magnitude < SMALLEST_PLAIN || magnitude >= LARGEST_PLAIN)
    return withPowerOfTen(value, locale, digits);
  return locale.toString(value, 'f', decimalsFor(value, digits));
}

std::span<const ELengthUnit> lengthUnits() { return LENGTH_UNITS; }
std::span<const EAreaUnit> areaUnits() { return AREA_UNITS; }
std::span<const EVolumeUnit> volumeUnits() { return VOLUME_UNITS; }

} // namespace Vela::Common
