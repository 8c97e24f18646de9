// SPDX-License-Identifier: MIT
#include "session_types.h"

#include <QJsonArray>
#include <QLineF>
#include <QMatrix4x4>
#include <QQuaternion>
#include <QRectF>
#include <QVector2D>
#include <QVector3D>
#include <QVector4D>

#include <array>
#include <cmath>
#include <limits>

namespace Vela::UiBase {

namespace {

constexpr QLatin1String bytesKey("$bytes");
constexpr QLatin1String numberKey("$number");

using Numbers = QList<double>;

struct Form {
  const char* key;
  Numbers numbers;
};

template <class Vector>
Numbers components(const QVariant& value, int count) {
  const auto vector = value.value<Vector>();
  Numbers numbers;
  for (int i = 0; i < count; ++i)
    numbers.append(double(vector[i]));
  return numbers;
}

Numbers ofMatrix(const QMatrix4x4& matrix) {
  std::array<float, 16> values{};
  matrix.copyDataTo(values.data());
  return {values.cbegin(), values.cend()};
}

std::optional<Form> formOf(const QVariant& value) {
  switch (value.typeId()) {
  case QMetaType::QPoint:
  case QMetaType::QPointF:
    return Form{"$point", {value.toPointF().x(), value.toPointF().y()}};
  case QMetaType::QSize:
  case QMetaType::QSizeF:
    return Form{"$size", {value.toSizeF().width(), value.toSizeF().height()}};
  case QMetaType::QRect:
  case QMetaType::QRectF: {
    const QRectF rect = value.toRectF();
    return Form{"$rect", {rect.x(), rect.y(), rect.width(), rect.height()}};
  }
  case QMetaType::QLine:
  case QMetaType::QLineF: {
    const QLineF line = value.toLineF();
    return Form{"$line", {line.x1(), line.y1(), line.x2(), line.y2()}};
  }
  case QMetaType::QVector2D:
    return Form{"$vector", components<QVector2D>(value, 2)};
  case QMetaType::QVector3D:
    return Form{"$vector", components<QVector3D>(value, 3)};
  case QMetaType::QVector4D:
    return Form{"$vector", components<QVector4D>(value, 4)};
  case QMetaType::QQuaternion:
    return Form{"$quaternion", components<QVector4D>(value.value<QQuaternion>().toVector4D(), 4)};
  case QMetaType::QMatrix4x4:
    return Form{"$matrix", ofMatrix(value.value<QMatrix4x4>())};
  default:
    return std::nullopt;
  }
}

QVariant fromForm(const QString& key, const Numbers& n) {
  const auto is = [&](const char* name, qsizetype count) {
    return key == QLatin1String(name) && n.size() == count;
  };
  const auto at = [&n](qsizetype i) { return float(n[i]); };
  if (is("$point", 2))
    return QPointF(n[0], n[1]);
  if (is("$size", 2))
    return QSizeF(n[0], n[1]);
  if (is("$rect", 4))
    return QRectF(n[0], n[1], n[2], n[3]);
  if (is("$line", 4))
    return QLineF(n[0], n[1], n[2], n[3]);
  if (is("$vector", 2))
    return QVector2D(at(0), at(1));
  if (is("$vector", 3))
    return QVector3D(at(0), at(1), at(2));
  if (is("$vector", 4))
    return QVector4D(at(0), at(1), at(2), at(3));
  if (is("$quaternion", 4))
    return QQuaternion(QVector4D(at(0), at(1), at(2), at(3)));
  if (is("$matrix", 16)) {
    const QList<float> values(n.cbegin(), n.cend());
    return QMatrix4x4(values.constData());
  }
  return {};
}

QJsonValue fromNumber(double number) {
  if (std::isfinite(number))
    return number;
  const QString name = QString::fromLatin1(std::isnan(number) ? "nan" : number < 0 ? "-inf" : "inf");
  return QJsonObject{{numberKey, name}};
}

std::optional<double> toNumber(const QJsonValue& value) {
  if (value.isDouble())
    return value.toDouble();
  const QString name = value.toObject().value(numberKey).toString();
  if (name == QLatin1String("nan"))
    return std::numeric_limits<double>::quiet_NaN();
  if (name == QLatin1String("inf") || name == QLatin1String("-inf"))
    return (name.size() == 3 ? 1 : -1) * std::numeric_limits<double>::infinity();
  return std::nullopt;
}

} // namespace

std::optional<QJsonObject> SessionTypes::toJson(const QVariant& value) {
  if (value.typeId() == QMetaType::QByteArray)
    return QJsonObject{{bytesKey, QString::fromLatin1(value.toByteArray().toBase64())}};
  const bool isNumber = value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
  if (isNumber && !std::isfinite(value.toDouble()))
    return fromNumber(value.toDouble()).toObject();
  const auto form = formOf(value);
  if (!form)
    return std::nullopt;
  QJsonArray numbers;
  for (const double number : form->numbers)
    numbers.append(fromNumber(number));
  return QJsonObject{{QLatin1String(form->key), numbers}};
}

std::optional<QVariant> SessionTypes::fromJson(const QJsonObject& object) {
  if (object.size() != 1)
    return std::nullopt;
  if (const auto number = toNumber(object))
    return *number;
  if (object[bytesKey].isString())
    return QByteArray::fromBase64(object[bytesKey].toString().toLatin1());
  Numbers numbers;
  const QJsonArray array = object.begin()->toArray();
  for (const auto& value : array) {
    if (const auto number = toNumber(value))
      numbers.append(*number);
    else
      return std::nullopt;
  }
  const QVariant value = fromForm(object.begin().key(), numbers);
  return value.isValid() ? std::optional(value) : std::nullopt;
}

} // namespace Vela::UiBase
