// Smart pointers for GLib's objects and memory.
#pragma once

#include <glib-object.h>

#include <memory>

namespace panelkit {

struct UnrefObject {
  void operator()(gpointer object) const { g_object_unref(object); }
};

/// One reference to a GObject.
template <typename T>
using ObjectPtr = std::unique_ptr<T, UnrefObject>;

struct FreeMemory {
  void operator()(gpointer memory) const { g_free(memory); }
};

/// A text that GLib has allocated.
using TextPtr = std::unique_ptr<char, FreeMemory>;

/// A reference to `object`; sinks the floating one that a new widget has.
template <typename T>
ObjectPtr<T> KeepObject(T* object) {
  g_object_ref_sink(object);
  return ObjectPtr<T>(object);
}

}  // namespace panelkit
