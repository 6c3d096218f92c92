#include "controls/property_bag.h"

#include <QBuffer>
#include <QByteArray>

namespace velmora::controls {
namespace {

QString quote(const QString& text) {
  QString out = QStringLiteral("\"");
  for (const QChar c : text) {
    switch (c.unicode()) {
      case '\\': out += QStringLiteral("\\\\"); break;
      case '"': out += QStringLiteral("\\\""); break;
      case '\n': out += QStringLiteral("\\n"); break;
      case '\r': out += QStringLiteral("\\r"); break;
      case '\t': out += QStringLiteral("\\t"); break;
      default: out += c;
    }
  }
  out += QLatin1Char('"');
  return out;
}

// Reads a quoted string starting at text[0]; false when the quotes or escapes are malformed.
bool unquote(const QString& text, QString& out) {
  if (text.size() < 2 || text.front() != QLatin1Char('"') || text.back() != QLatin1Char('"')) {
    return false;
  }
  out.clear();
  for (qsizetype i = 1; i + 1 < text.size(); ++i) {
    const QChar c = text[i];
    if (c == QLatin1Char('"')) return false;
    if (c != QLatin1Char('\\')) {
      out += c;
      continue;
    }
    if (++i >= text.size() - 1) return false;  // a backslash may not escape the closing quote
    switch (text[i].unicode()) {
      case '\\': out += QLatin1Char('\\'); break;
      case '"': out += QLatin1Char('"'); break;
      case 'n': out += QLatin1Char('\n'); break;
      case 'r': out += QLatin1Char('\r'); break;
      case 't': out += QLatin1Char('\t'); break;
      default: return false;
    }
  }
  return true;
}

QString format_value(const PropertyBag::Value& value) {
  if (const auto* number = std::get_if<qint64>(&value)) return QString::number(*number);
  if (const auto* flag = std::get_if<bool>(&value)) {
    return *flag ? QStringLiteral("True") : QStringLiteral("False");
  }
  if (const auto* text = std::get_if<QString>(&value)) return quote(*text);
  if (const auto* image = std::get_if<QImage>(&value)) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image->save(&buffer, "PNG");
    return QStringLiteral("png:") + QString::fromLatin1(png.toBase64());
  }
  return QStringLiteral("font:") + quote(std::get<QFont>(value).toString());
}

bool parse_value(const QString& text, PropertyBag::Value& value) {
  if (text.startsWith(QLatin1Char('"'))) {
    QString s;
    if (!unquote(text, s)) return false;
    value = s;
    return true;
  }
  if (text.startsWith(QStringLiteral("png:"))) {
    const QByteArray png = QByteArray::fromBase64(text.mid(4).toLatin1());
    QImage image;
    if (!image.loadFromData(png, "PNG")) return false;
    value = image;
    return true;
  }
  if (text.startsWith(QStringLiteral("font:"))) {
    QString description;
    QFont font;
    if (!unquote(text.mid(5), description) || !font.fromString(description)) return false;
    value = font;
    return true;
  }
  if (text.compare(QStringLiteral("True"), Qt::CaseInsensitive) == 0) {
    value = true;
    return true;
  }
  if (text.compare(QStringLiteral("False"), Qt::CaseInsensitive) == 0) {
    value = false;
    return true;
  }
  bool ok = false;
  const qint64 number = text.toLongLong(&ok, 10);
  if (!ok) return false;
  value = number;
  return true;
}

}  // namespace

void PropertyBag::write(const QString& key, const Value& value) {
  for (Entry& entry : entries_) {
    if (entry.key.compare(key, Qt::CaseInsensitive) == 0) {
      entry.value = value;
      return;
    }
  }
  entries_.push_back({key, value});
}

void PropertyBag::write(const QString& key, const Value& value, const Value& fallback) {
  const auto* image = std::get_if<QImage>(&value);
  if (value == fallback || (image != nullptr && image->isNull())) return;
  write(key, value);
}

const PropertyBag::Value* PropertyBag::find(const QString& key) const {
  for (const Entry& entry : entries_) {
    if (entry.key.compare(key, Qt::CaseInsensitive) == 0) return &entry.value;
  }
  return nullptr;
}

QStringList PropertyBag::keys() const {
  QStringList out;
  for (const Entry& entry : entries_) out << entry.key;
  return out;
}

qint64 PropertyBag::read_int(const QString& key, qint64 fallback) const {
  const Value* value = find(key);
  if (value == nullptr) return fallback;
  if (const auto* number = std::get_if<qint64>(value)) return *number;
  if (const auto* flag = std::get_if<bool>(value)) return *flag ? -1 : 0;
  return fallback;
}

bool PropertyBag::read_bool(const QString& key, bool fallback) const {
  const Value* value = find(key);
  if (value == nullptr) return fallback;
  if (const auto* flag = std::get_if<bool>(value)) return *flag;
  if (const auto* number = std::get_if<qint64>(value)) return *number != 0;
  return fallback;
}

QString PropertyBag::read_string(const QString& key, const QString& fallback) const {
  const Value* value = find(key);
  const auto* text = value != nullptr ? std::get_if<QString>(value) : nullptr;
  return text != nullptr ? *text : fallback;
}

QImage PropertyBag::read_image(const QString& key) const {
  const Value* value = find(key);
  const auto* image = value != nullptr ? std::get_if<QImage>(value) : nullptr;
  return image != nullptr ? *image : QImage();
}

QFont PropertyBag::read_font(const QString& key, const QFont& fallback) const {
  const Value* value = find(key);
  const auto* font = value != nullptr ? std::get_if<QFont>(value) : nullptr;
  return font != nullptr ? *font : fallback;
}

QString PropertyBag::to_text() const {
  QString out;
  for (const Entry& entry : entries_) {
    out += entry.key + QStringLiteral(" = ") + format_value(entry.value) + QLatin1Char('\n');
  }
  return out;
}

PropertyBagParse parse_property_bag(const QString& text) {
  PropertyBagParse result;
  const QStringList lines = text.split(QLatin1Char('\n'));
  for (int i = 0; i < lines.size(); ++i) {
    const QString line = lines[i].trimmed();
    if (line.isEmpty()) continue;
    const qsizetype equals = line.indexOf(QLatin1Char('='));
    const QString key = equals > 0 ? line.left(equals).trimmed() : QString();
    PropertyBag::Value value;
    if (key.isEmpty() || !parse_value(line.mid(equals + 1).trimmed(), value)) {
      result.error_line = i + 1;
      result.error = QStringLiteral("property bag: cannot read line %1: %2").arg(i + 1).arg(line);
      return result;
    }
    result.bag.write(key, value);
  }
  return result;
}

}  // namespace velmora::controls
