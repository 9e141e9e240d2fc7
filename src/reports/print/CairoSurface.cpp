#include "reports/print/CairoSurface.h"

#include "platform/PlatformError.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>
#include <pango/pangocairo.h>

#include <cmath>
#include <unordered_map>
#include <utility>
#include <vector>

namespace corvanta::inline reports {
namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;
constexpr double kPointsPerInch = 72;
constexpr const char* kUsualFont = "Sans";
// Lists repeat their names; measuring is most of what a page costs.
constexpr std::size_t kMaxRemembered = 20000;

template <auto Release>
struct Releaser {
  template <typename Object>
  void operator()(Object* object) const {
    Release(object);
  }
};

using SurfacePtr = std::unique_ptr<cairo_surface_t, Releaser<cairo_surface_destroy>>;
using ContextPtr = std::unique_ptr<cairo_t, Releaser<cairo_destroy>>;
using LayoutPtr = std::unique_ptr<PangoLayout, Releaser<g_object_unref>>;
using FontPtr = std::unique_ptr<PangoFontDescription, Releaser<pango_font_description_free>>;

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

std::vector<double> DashesOf(PrintStroke stroke, double thickness) {
  switch (stroke) {
    case PrintStroke::Dashed:
      return {4 * thickness, 2 * thickness};
    case PrintStroke::Dotted:
      return {thickness, 2 * thickness};
    case PrintStroke::DashDotted:
      return {4 * thickness, 2 * thickness, thickness, 2 * thickness};
    case PrintStroke::Solid:
      break;
  }
  return {};
}

}  // namespace

struct CairoSurface::Canvas {
  PrintArea printable;  // millimetres
  bool isPng = false;
  std::string bytes = {};
  SurfacePtr surface = {};
  ContextPtr context = {};
  LayoutPtr layout = {};
  std::unordered_map<std::string, double> widths = {};  // in the font in force
  double lineHeight = 0;

  void Begin(cairo_surface_t* made, double scale) {
    surface.reset(made);
    context.reset(cairo_create(made));
    cairo_scale(context.get(), scale, scale);
    layout.reset(pango_cairo_create_layout(context.get()));
    PangoContext* texts = pango_layout_get_context(layout.get());
    // Letters stand where they belong, not on the dots of a screen.
    pango_context_set_round_glyph_positions(texts, 0);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(texts, options);
    cairo_font_options_destroy(options);
    pango_layout_set_single_paragraph_mode(layout.get(), 1);
  }
  void SetText(std::string_view text) const {
    pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
  }
  void Check(cairo_status_t status) const {
    if (status == CAIRO_STATUS_SUCCESS) return;
    throw PlatformError(std::string("The pages cannot be drawn: ") +
                        cairo_status_to_string(status) + ". Nothing was written.");
  }
};

CairoSurface::CairoSurface(std::unique_ptr<Canvas> canvas) : canvas_(std::move(canvas)) {
  SetFont({});
}
CairoSurface::CairoSurface(CairoSurface&&) noexcept = default;
CairoSurface& CairoSurface::operator=(CairoSurface&&) noexcept = default;
CairoSurface::~CairoSurface() = default;

CairoSurface CairoSurface::Pdf(const PageForm& form, const std::string& title) {
  auto canvas = std::make_unique<Canvas>(Canvas{form.printable});
  cairo_surface_t* pages = cairo_pdf_surface_create_for_stream(
      Append, &canvas->bytes, form.paper.width * kPointsPerMillimetre,
      form.paper.height * kPointsPerMillimetre);
  cairo_pdf_surface_set_metadata(pages, CAIRO_PDF_METADATA_TITLE, title.c_str());
  cairo_pdf_surface_set_metadata(pages, CAIRO_PDF_METADATA_CREATOR, "Corvanta Personal Finance");
  canvas->Begin(pages, 1);
  return CairoSurface(std::move(canvas));
}

CairoSurface CairoSurface::Picture(PictureForm form, double width, double height,
                                   double dotsPerInch) {
  auto canvas = std::make_unique<Canvas>(Canvas{{0, 0, width, height}});
  const double across = width * kPointsPerMillimetre;
  const double down = height * kPointsPerMillimetre;
  canvas->isPng = form == PictureForm::Png;
  if (canvas->isPng) {
    const double scale = dotsPerInch / kPointsPerInch;
    canvas->Begin(cairo_image_surface_create(CAIRO_FORMAT_ARGB32,
                                             static_cast<int>(std::lround(across * scale)),
                                             static_cast<int>(std::lround(down * scale))),
                  scale);
  } else {
    canvas->Begin(cairo_svg_surface_create_for_stream(Append, &canvas->bytes, across, down), 1);
  }
  return CairoSurface(std::move(canvas));
}

double CairoSurface::ScaleWidth() const {
  return canvas_->printable.width;
}

double CairoSurface::ScaleHeight() const {
  return canvas_->printable.height;
}

void CairoSurface::SetFont(const PrintFont& font) {
  const FontPtr description(pango_font_description_new());
  pango_font_description_set_family(description.get(),
                                    font.name.empty() ? kUsualFont : font.name.c_str());
  pango_font_description_set_absolute_size(description.get(), font.size * PANGO_SCALE);
  if (font.isBold) pango_font_description_set_weight(description.get(), PANGO_WEIGHT_BOLD);
  if (font.isItalic) pango_font_description_set_style(description.get(), PANGO_STYLE_ITALIC);
  PangoLayout* layout = canvas_->layout.get();
  pango_layout_set_font_description(layout, description.get());
  PangoAttrList* lines = pango_attr_list_new();
  if (font.isUnderlined) {
    pango_attr_list_insert(lines, pango_attr_underline_new(PANGO_UNDERLINE_SINGLE));
  }
  if (font.isStruckOut) pango_attr_list_insert(lines, pango_attr_strikethrough_new(1));
  pango_layout_set_attributes(layout, lines);
  pango_attr_list_unref(lines);
  canvas_->widths.clear();
  canvas_->SetText("A");
  int height = 0;
  pango_layout_get_size(layout, nullptr, &height);
  canvas_->lineHeight = static_cast<double>(height) / PANGO_SCALE / kPointsPerMillimetre;
}

void CairoSurface::SetForeColor(std::uint32_t colour) {
  const auto part = [colour](unsigned shift) { return ((colour >> shift) & 0xFFU) / 255.0; };
  cairo_set_source_rgb(canvas_->context.get(), part(16), part(8), part(0));
}

double CairoSurface::TextWidth(std::string_view text) {
  auto& widths = canvas_->widths;
  if (const auto known = widths.find(std::string(text)); known != widths.end()) {
    return known->second;
  }
  canvas_->SetText(text);
  int width = 0;
  pango_layout_get_size(canvas_->layout.get(), &width, nullptr);
  const double millimetres = static_cast<double>(width) / PANGO_SCALE / kPointsPerMillimetre;
  if (widths.size() >= kMaxRemembered) widths.clear();
  widths.emplace(text, millimetres);
  return millimetres;
}

double CairoSurface::TextHeight(std::string_view) {
  return canvas_->lineHeight;
}

void CairoSurface::Print(double x, double y, std::string_view text) {
  if (text.empty()) return;
  cairo_t* context = canvas_->context.get();
  cairo_move_to(context, (canvas_->printable.x + x) * kPointsPerMillimetre,
                (canvas_->printable.y + y) * kPointsPerMillimetre);
  canvas_->SetText(text);
  // Letters as shapes: not every program that shows such a picture knows letters that are drawn
  // once and referred to.
  if (cairo_surface_get_type(cairo_get_target(context)) == CAIRO_SURFACE_TYPE_SVG) {
    pango_cairo_layout_path(context, canvas_->layout.get());
    cairo_fill(context);
  } else {
    pango_cairo_show_layout(context, canvas_->layout.get());
  }
  cairo_new_path(context);
}

void CairoSurface::Path(std::span<const PrintPoint> points, double thickness, PrintStroke stroke) {
  cairo_t* context = canvas_->context.get();
  const double width = thickness * kPointsPerMillimetre;
  const std::vector<double> dashes = DashesOf(stroke, width);
  cairo_set_line_width(context, width);
  cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
  cairo_set_dash(context, dashes.data(), static_cast<int>(dashes.size()), 0);
  for (const PrintPoint& point : points) {
    cairo_line_to(context, (canvas_->printable.x + point.x) * kPointsPerMillimetre,
                  (canvas_->printable.y + point.y) * kPointsPerMillimetre);
  }
  cairo_stroke(context);
}

void CairoSurface::Shape(std::span<const PrintPoint> corners) {
  cairo_t* context = canvas_->context.get();
  for (const PrintPoint& corner : corners) {
    cairo_line_to(context, (canvas_->printable.x + corner.x) * kPointsPerMillimetre,
                  (canvas_->printable.y + corner.y) * kPointsPerMillimetre);
  }
  cairo_fill(context);
}

void CairoSurface::NewPage() {
  cairo_show_page(canvas_->context.get());
  canvas_->Check(cairo_status(canvas_->context.get()));
}

void CairoSurface::EndDoc() {
  canvas_->Check(cairo_status(canvas_->context.get()));
  cairo_surface_t* surface = canvas_->surface.get();
  if (canvas_->isPng) {
    canvas_->Check(cairo_surface_write_to_png_stream(surface, Append, &canvas_->bytes));
  }
  cairo_surface_finish(surface);
  canvas_->Check(cairo_surface_status(surface));
}

std::string CairoSurface::Take() {
  return std::exchange(canvas_->bytes, {});
}

}  // namespace corvanta::inline reports
