#include "simulator/charts/canvas.h"

#include <cairo-pdf.h>

#include <algorithm>
#include <numbers>
#include <stdexcept>

#include "simulator/data/time.h"

namespace sim {

namespace {

cairo_status_t append(void* closure, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(closure)->append(data, data + length);
  return CAIRO_STATUS_SUCCESS;
}

cairo_surface_t* openSurface(Format format, bool high, std::string& bytes) {
  if (format == Format::pdf) {
    return cairo_pdf_surface_create_for_stream(append, &bytes, Canvas::width, Canvas::height);
  }
  const int scale = high ? 2 : 1;
  return cairo_image_surface_create(CAIRO_FORMAT_RGB24, scale * static_cast<int>(Canvas::width),
                                    scale * static_cast<int>(Canvas::height));
}

// Looking a face up is costly, and cairo keeps what it finds: each is asked for once.
cairo_font_face_t* face(bool bold) {
  static cairo_font_face_t* const normal =
      cairo_toy_font_face_create("DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  static cairo_font_face_t* const heavy =
      cairo_toy_font_face_create("DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
  return bold ? heavy : normal;
}

void check(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) {
    throw std::runtime_error(std::string("A chart could not be drawn: ") +
                             cairo_status_to_string(status));
  }
}

}  // namespace

Canvas::Canvas(Format format, bool high, const std::string& title, std::chrono::sys_seconds valid)
    : format_(format),
      surface_(openSurface(format, high, bytes_), &cairo_surface_destroy),
      pen_(cairo_create(surface_.get()), &cairo_destroy) {
  check(cairo_status(pen()));
  if (format == Format::pdf) {
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATE_DATE,
                                   isoDateTime(valid).c_str());
  } else if (high) {
    cairo_scale(pen(), 2, 2);
  }
  cairo_set_line_join(pen(), CAIRO_LINE_JOIN_ROUND);
  cairo_set_line_cap(pen(), CAIRO_LINE_CAP_ROUND);
}

std::string Canvas::finish() {
  check(cairo_status(pen()));
  if (format_ == Format::pdf) {
    cairo_show_page(pen());
    cairo_surface_finish(surface_.get());
  } else {
    check(cairo_surface_write_to_png_stream(surface_.get(), append, &bytes_));
  }
  check(cairo_surface_status(surface_.get()));
  return std::move(bytes_);
}

void Canvas::ink(Colour colour, double opacity) const {
  cairo_set_source_rgba(pen(), colour.red, colour.green, colour.blue, opacity);
}

void Canvas::stroke(Colour colour, double lineWidth) const {
  ink(colour);
  cairo_set_line_width(pen(), lineWidth);
  cairo_stroke(pen());
}

void Canvas::fill(Colour colour, double opacity) const {
  ink(colour, opacity);
  cairo_fill(pen());
}

void Canvas::line(const std::vector<MapPoint>& points, bool closed) const {
  cairo_new_sub_path(pen());
  for (const MapPoint& point : points) {
    cairo_line_to(pen(), point.x, point.y);
  }
  if (closed) {
    cairo_close_path(pen());
  }
}

void Canvas::box(const MapRect& rect, double corner) const {
  constexpr double quarter = std::numbers::pi / 2;
  cairo_new_sub_path(pen());
  cairo_arc(pen(), rect.right - corner, rect.top + corner, corner, -quarter, 0);
  cairo_arc(pen(), rect.right - corner, rect.bottom - corner, corner, 0, quarter);
  cairo_arc(pen(), rect.left + corner, rect.bottom - corner, corner, quarter, 2 * quarter);
  cairo_arc(pen(), rect.left + corner, rect.top + corner, corner, 2 * quarter, 3 * quarter);
  cairo_close_path(pen());
}

void Canvas::font(double size, bool bold) const {
  cairo_set_font_face(pen(), face(bold));
  cairo_set_font_size(pen(), size);
}

double Canvas::textWidth(const std::string& words, double size, bool bold) const {
  font(size, bold);
  cairo_text_extents_t extents;
  cairo_text_extents(pen(), words.c_str(), &extents);
  return extents.x_advance;
}

void Canvas::text(MapPoint at, const std::string& words, double size, Colour colour, Align align,
                  bool bold, double halo) const {
  const double shift = align == Align::left ? 0 : align == Align::centre ? 0.5 : 1;
  const double x = at.x - shift * textWidth(words, size, bold);
  const double y = at.y + size * 0.365;  // half the height of a capital
  if (halo > 0) {
    cairo_move_to(pen(), x, y);
    cairo_text_path(pen(), words.c_str());
    stroke(ink::paper, 2 * halo);
  }
  ink(colour);
  cairo_move_to(pen(), x, y);
  cairo_show_text(pen(), words.c_str());
  cairo_new_path(pen());
}

bool Canvas::isFree(const MapRect& rect) const {
  return std::ranges::none_of(taken_, [&rect](const MapRect& other) {
    return rect.left < other.right && other.left < rect.right && rect.top < other.bottom &&
           other.top < rect.bottom;
  });
}

bool Canvas::reserve(const MapRect& rect) {
  if (!isFree(rect)) {
    return false;
  }
  taken_.push_back(rect);
  return true;
}

}  // namespace sim

#ifdef KTP_SANITIZED
// fontconfig links its cached patterns by offsets, which the leak check does not follow.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libfontconfig\n";
}
#endif
