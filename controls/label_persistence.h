// Saving and restoring `TindraLabel`'s properties in a property bag, under its keys in its order,
// where "BackStyle", "BorderStyle" and "MousePointer" come twice.
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

#include "controls/label_properties.h"
#include "controls/property_bag.h"

namespace velmora::controls {

// The keys in the order they are read and written, doubled keys included.
const QStringList& label_property_keys();

// Writes every key in order; values equal to the stored-form default are left out. A doubled key
// is one entry of the bag.
void write_label_properties(const LabelProperties& props, const QString& own_name, const QFont& host_font,
                            PropertyBag& bag);

// Reads every key in order, falling back to the stored-form defaults (opaque, 0x8000000F back,
// 0x80000012 text), the control's own name and the host's font. The fore colour read is also
// the one kept for re-enabling.
LabelProperties read_label_properties(const PropertyBag& bag, const QString& own_name, const QFont& host_font);

}  // namespace velmora::controls
