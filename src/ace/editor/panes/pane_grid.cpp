#include <utility>

#include <ace/editor/panes/pane_grid.h>

namespace ace::pane_grid {

namespace {

constexpr float Margin = 240.0F;
constexpr float FirstRow = 360.0F;
constexpr float RowHeight = 450.0F;
constexpr float FieldHeight = 360.0F;
constexpr float FieldLeft = 2160.0F;
constexpr float FieldWidth = 3600.0F;
constexpr float ValueLeft = 4560.0F;
constexpr float Gap = 60.0F;

float TopOf(std::int32_t row) {
    return FirstRow + static_cast<float>(row) * RowHeight;
}

ControlFields At(std::int32_t row, float left, float right, String caption = {}) {
    ControlFields fields;
    fields.caption = std::move(caption);
    fields.left = left;
    fields.top = TopOf(row);
    fields.width = right - left;
    fields.height = FieldHeight;
    return fields;
}

}  // namespace

ControlFields FrameOf(std::int32_t rows, String caption, float left, float top, float width) {
    ControlFields fields;
    fields.caption = std::move(caption);
    fields.left = left;
    fields.top = top;
    fields.width = width;
    fields.height = TopOf(rows);
    return fields;
}

ControlFields CaptionAt(std::int32_t row, String caption) {
    return At(row, Margin, FieldLeft - Gap, std::move(caption));
}

ControlFields FieldAt(std::int32_t row, std::int32_t rows) {
    ControlFields fields = At(row, FieldLeft, FieldLeft + FieldWidth);
    fields.height += static_cast<float>(rows - 1) * RowHeight;
    return fields;
}

ControlFields LineAt(std::int32_t row, String caption) {
    return At(row, Margin, FieldLeft + FieldWidth, std::move(caption));
}

ControlFields ShortLineAt(std::int32_t row, String caption) {
    return At(row, Margin, ValueLeft - Gap, std::move(caption));
}

ControlFields ValueAt(std::int32_t row) {
    return At(row, ValueLeft, FieldLeft + FieldWidth);
}

ControlFields BesideAt(std::int32_t row, String caption) {
    const float left = FieldLeft + FieldWidth + Gap;
    return At(row, left, left + FieldHeight, std::move(caption));
}

ControlFields ButtonAt(std::int32_t row, std::int32_t place, String caption) {
    const float left = FieldLeft + static_cast<float>(place) * (ButtonWidth + Gap);
    return At(row, left, left + ButtonWidth, std::move(caption));
}

ControlFields PictureAt(std::int32_t row) {
    return At(row, Margin, Margin + FieldHeight);
}

ControlFields NameAt(std::int32_t row, String caption) {
    return At(row, Margin + FieldHeight + Gap, FieldLeft + FieldWidth, std::move(caption));
}

void MoveToRow(ControlFields& control, std::int32_t row) {
    control.top = TopOf(row);
}

}  // namespace ace::pane_grid
