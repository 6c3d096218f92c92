// Saving and restoring the skinned button's properties in a property bag, under fixed keys in a
// fixed order. Reading stores the raw values: the style and theme presets are not run.
#pragma once

#include <QFont>
#include <QString>
#include <QStringList>

#include "controls/button_properties.h"
#include "controls/property_bag.h"

namespace velmora::controls {

// The keys in the order they are written and read.
const QStringList& button_property_keys();

// Writes every property; values equal to their default are left out (`Caption` defaults to the
// control's own name, `Font` to the host's font).
void write_button_properties(const ButtonProperties& props, const QString& own_name, const QFont& host_font,
                             PropertyBag& bag);

// Reads every key, falling back to the default of a missing key; `Caption` falls back to the
// control's own name and `Font` to the host's font.
ButtonProperties read_button_properties(const PropertyBag& bag, const QString& own_name, const QFont& host_font);

}  // namespace velmora::controls
