// SPDX-License-Identifier: MIT
#pragma once

#include <qskrccommon/qskrccommon_export.h>

#include <QLocale>
#include <QString>

#include <span>

namespace Vela::Common {

/// Units of length.
enum ELengthUnit : int {
  Micrometre = 0,
  Millimetre = 1,
  Centimetre = 2,
  Metre = 3,
  Kilometre = 4,
  Inch = 5,
  Foot = 6,
  Yard = 7,
};

/// Units of area.
enum EAreaUnit : int {
  SquareMillimetre = 0,
  SquareCentimetre = 1,
  SquareMetre = 2,
  SquareInch = 3,
  SquareFoot = 4,
};

/// Units of volume.
enum EVolumeUnit : int {
  CubicMillimetre = 0,
  CubicCentimetre = 1,
  CubicMetre = 2,
  Millilitre = 3,
  Litre = 4,
  CubicInch = 5,
  CubicFoot = 6,
};

/// The digits that formatValue() shows unless told otherwise.
inline constexpr int DEFAULT_SIGNIFICANT_DIGITS = 4;

/// \name Units of length, area and volume
///
/// Every function exists for the three kinds of unit, so that a length cannot be taken for a volume. Names
/// and symbols are translated each time they are asked for. A number that is cast to a unit without being one
/// gives empty texts and converts to NaN. An application that has a unit library of its own may replace this
/// one. Safe on any thread.
///
/// \code
/// using namespace Vela::Common;
/// const double litres = convert(meshVolume, CubicMillimetre, Litre);
/// valueLabel->setText(formatNumber(litres));     // "1.234"
/// unitLabel->setText(unitSymbol(Litre));         // "l"
/// status->setText(formatValue(litres, Litre));   // "1.234 l", with a space that does not break
/// \endcode
/// @{

/// The same quantity in another unit. A value in its own unit comes back unchanged.
QSKRC_COMMON_EXPORT double convert(double value, ELengthUnit from, ELengthUnit to);
QSKRC_COMMON_EXPORT double convert(double value, EAreaUnit from, EAreaUnit to);
QSKRC_COMMON_EXPORT double convert(double value, EVolumeUnit from, EVolumeUnit to);

/// The translated name for a list of units, in the plural: "millimetres".
QSKRC_COMMON_EXPORT QString unitName(ELengthUnit unit);
QSKRC_COMMON_EXPORT QString unitName(EAreaUnit unit);
QSKRC_COMMON_EXPORT QString unitName(EVolumeUnit unit);

/// The symbol that stands behind a value: "mm", "mm²", "mm³".
QSKRC_COMMON_EXPORT QString unitSymbol(ELengthUnit unit);
QSKRC_COMMON_EXPORT QString unitSymbol(EAreaUnit unit);
QSKRC_COMMON_EXPORT QString unitSymbol(EVolumeUnit unit);

/// \a value and the symbol of its unit as \a locale writes numbers, with a no-break space between. See
/// formatNumber() for the number. The text is empty for NaN, a value that is not known.
QSKRC_COMMON_EXPORT QString formatValue(double value, ELengthUnit unit, const QLocale& locale = QLocale(),
                                        int significantDigits = DEFAULT_SIGNIFICANT_DIGITS);
QSKRC_COMMON_EXPORT QString formatValue(double value, EAreaUnit unit, const QLocale& locale = QLocale(),
                                        int significantDigits = DEFAULT_SIGNIFICANT_DIGITS);
QSKRC_COMMON_EXPORT QString formatValue(double value, EVolumeUnit unit, const QLocale& locale = QLocale(),
                                        int significantDigits = DEFAULT_SIGNIFICANT_DIGITS);

/// \a value rounded to \a significantDigits (1 to 15), as \a locale writes it. Digits before the decimal
/// point are never rounded away, zeros at the end of the decimals are left out. Values too large or too small
/// to be read that way (from 1e15, below 0.0001) are written as "4.62 × 10⁻⁵". Empty for NaN, "∞" or "-∞" for
/// an infinity.
QSKRC_COMMON_EXPORT QString formatNumber(double value, const QLocale& locale = QLocale(),
                                         int significantDigits = DEFAULT_SIGNIFICANT_DIGITS);

/// All units of a kind in the order of the enumeration, for a list to choose from.
QSKRC_COMMON_EXPORT std::span<const ELengthUnit> lengthUnits();
QSKRC_COMMON_EXPORT std::span<const EAreaUnit> areaUnits();
QSKRC_COMMON_EXPORT std::span<const EVolumeUnit> volumeUnits();
/// @}

} // namespace Vela::Common
