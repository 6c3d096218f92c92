// A named, ordered set of property values that the controls save and restore, one "Key = value"
// line each. Keys match without regard to case; a writer's default value is left out of the bag.
#pragma once

#include <QFont>
#include <QImage>
#include <QString>
#include <QStringList>
#include <variant>
#include <vector>

namespace velmora::controls {

class PropertyBag {
 public:
  using Value = std::variant<qint64, bool, QString, QImage, QFont>;

  // Stores the value under the key. A key already present keeps its place and takes the value.
  void write(const QString& key, const Value& value);
  // As above, but nothing is stored when the value equals the default (or is a null picture).
  void write(const QString& key, const Value& value, const Value& fallback);

  bool contains(const QString& key) const { return find(key) != nullptr; }
  const Value* find(const QString& key) const;
  QStringList keys() const;

  // Typed reads: the fallback when the key is absent or holds a value of another kind.
  // Integers and booleans convert into each other (True is -1).
  qint64 read_int(const QString& key, qint64 fallback) const;
  bool read_bool(const QString& key, bool fallback) const;
  QString read_string(const QString& key, const QString& fallback) const;
  QImage read_image(const QString& key) const;
  QFont read_font(const QString& key, const QFont& fallback) const;

  // Text form: integers in decimal, booleans as True or False, strings quoted with backslash
  // escapes, pictures as "png:" and base64, fonts as "font:" and a quoted font description.
  QString to_text() const;

 private:
  struct Entry {
    QString key;
    Value value;
  };
  std::vector<Entry> entries_;
};

struct PropertyBagParse {
  PropertyBag bag;
  int error_line = 0;  // 1-based line of the first bad line, 0 when all lines were read
  QString error;
  bool ok() const { return error_line == 0; }
};

// Reads the text form. Blank lines are skipped; parsing stops at the first bad line, keeping
// what came before it.
PropertyBagParse parse_property_bag(const QString& text);

}  // namespace velmora::controls
