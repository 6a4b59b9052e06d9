#pragma once

#include <cairo.h>
#include <fontconfig/fontconfig.h>
#include <hb.h>
#include <memory>
#include <pango/pango.h>

#include "glyphs/Releaser.h"

namespace desk {

using glyphs::Releaser;

template <class T>
using GObjectHandle = std::unique_ptr<T, Releaser<g_object_unref>>;
using FontDescriptionHandle =
    std::unique_ptr<PangoFontDescription, Releaser<pango_font_description_free>>;
using AttributesHandle = std::unique_ptr<PangoAttrList, Releaser<pango_attr_list_unref>>;
using FontOptionsHandle =
    std::unique_ptr<cairo_font_options_t, Releaser<cairo_font_options_destroy>>;
using BufferHandle = std::unique_ptr<hb_buffer_t, Releaser<hb_buffer_destroy>>;
using BlobHandle = std::unique_ptr<hb_blob_t, Releaser<hb_blob_destroy>>;
using SetHandle = std::unique_ptr<hb_set_t, Releaser<hb_set_destroy>>;
using ShapePlanHandle = std::unique_ptr<hb_shape_plan_t, Releaser<hb_shape_plan_destroy>>;
using PatternHandle = std::unique_ptr<FcPattern, Releaser<FcPatternDestroy>>;
using ObjectSetHandle = std::unique_ptr<FcObjectSet, Releaser<FcObjectSetDestroy>>;
using FontSetHandle = std::unique_ptr<FcFontSet, Releaser<FcFontSetDestroy>>;
using GStringHandle = std::unique_ptr<char, Releaser<g_free>>;

}  // namespace desk
