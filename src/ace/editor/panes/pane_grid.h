/// The grid on which the controls of a pane stand: captions on the left, fields on the right, in
/// rows that count from 0. Places and sizes are in twips, within the frame in which they stand.
#pragma once

#include <ace/host/controls.h>

namespace ace::pane_grid {

inline constexpr float PaneWidth = 6495.0F;
inline constexpr float ButtonWidth = 1215.0F;
inline constexpr float ButtonHeight = 375.0F;

/// A frame that fills a pane's width and has `rows` rows; `top` within what it stands in.
ControlFields FrameOf(std::int32_t rows, String caption = {}, float left = 0.0F, float top = 0.0F,
                      float width = PaneWidth);
/// The words before a field.
ControlFields CaptionAt(std::int32_t row, String caption = {});
/// A field that is `rows` rows high.
ControlFields FieldAt(std::int32_t row, std::int32_t rows = 1);
/// A box with its words over the whole width, or the words alone.
ControlFields LineAt(std::int32_t row, String caption = {});
/// A box with its words that leaves room for a value behind it.
ControlFields ShortLineAt(std::int32_t row, String caption = {});
/// The value behind it.
ControlFields ValueAt(std::int32_t row);
/// The button behind a field.
ControlFields BesideAt(std::int32_t row, String caption = {});
/// A button of a row of them; `place` from 0.
ControlFields ButtonAt(std::int32_t row, std::int32_t place, String caption = {});
/// A picture, and the words behind it.
ControlFields PictureAt(std::int32_t row);
ControlFields NameAt(std::int32_t row, String caption = {});
/// Moves what stands in a row to another one.
void MoveToRow(ControlFields& control, std::int32_t row);

}  // namespace ace::pane_grid
