// Ownership of GLib's objects, errors and memory by C++ values.
#pragma once

#include <arv.h>

#include <memory>

namespace keocam {

struct GObjectUnref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
/// One counted reference to a GObject.
template <typename Object>
using GObjectPtr = std::unique_ptr<Object, GObjectUnref>;

struct GFree {
  void operator()(gpointer memory) const { g_free(memory); }
};
template <typename Type>
using GMemoryPtr = std::unique_ptr<Type, GFree>;

/// The error of one call: pass out(), then test it. Freed with its owner; use one per call.
class GErrorPtr {
 public:
  GErrorPtr() = default;
  ~GErrorPtr() { g_clear_error(&error_); }
  GErrorPtr(const GErrorPtr&) = delete;
  GErrorPtr& operator=(const GErrorPtr&) = delete;

  GError** out() { return &error_; }
  explicit operator bool() const { return error_ != nullptr; }
  const GError* get() const { return error_; }

 private:
  GError* error_ = nullptr;
};

}  // namespace keocam
