// UiRow: cells, colours and the drawing of a menu row.
#include "uiRow.h"

#include "uiColorRegistry.h"

#include "smContext.h"
#include "smGl.h"

#include <algorithm>
#include <cstring>

namespace Zr {

UiRow::UiRow(LiString const& string, int id, bool selectable)
    : _id(id), _selectable(selectable), _string(string) {
    UiColorRegistry const& colors = UiColorRegistry::getInstance();
    _background = colors.getColor("Blue4");
    _focusColor = colors.getColor("Blue3");
    _foreground = colors.getColor("Foreground");
    _inactiveForeground = colors.getColor("InactiveForeground");
}

UiRow::~UiRow() = default;

void UiRow::appendCell(OPtr<UiCell> cell) {
    ZR_ASSERT_TEXT(cell != nullptr, "!cell.isNull()");
    cell->setIndex(getNbCells());
    _cells.push_back(std::move(cell));
}

UiCell* UiRow::getCell(int index) const {
    if (index < 0 || index >= getNbCells())
        return nullptr;
    return _cells[static_cast<std::size_t>(index)].get();
}

void UiRow::padCells(int count) {
    while (getNbCells() < count)
        appendCell(std::make_unique<UiCell>());
}

int UiRow::getCellAt(int x) const {
    int left = 0;
    for (int i = 0; i < getNbCells(); ++i) {
        left += _cells[static_cast<std::size_t>(i)]->getWidth();
        if (x < left)
            return i;
    }
    return -1;
}

void UiRow::setFont(LiString const& handle) {
    for (auto const& c : _cells)
        c->setFont(handle);
}

void UiRow::close() {}

int UiRow::getWidth() const {
    int width = 0;
    for (auto const& c : _cells)
        width += c->getWidth();
    return width;
}

int UiRow::getHeight() const {
    int height = 0;
    for (auto const& c : _cells)
        height = std::max(height, c->getDesiredHeight());
    return height;
}

void UiRow::setHighlight(bool highlighted) {
    _highlighted = highlighted;
}

void UiRow::setColor(char const* name, CoRgbColorTyped<float> const& color) {
    if (!std::strcmp(name, "Background"))
        _background = color;
    else if (!std::strcmp(name, "FocusColor"))
        _focusColor = color;
    else if (!std::strcmp(name, "Foreground"))
        _foreground = color;
    else if (!std::strcmp(name, "InactiveForeground"))
        _inactiveForeground = color;
}

CoRgbColorTyped<float> UiRow::getColor(char const* name) const {
    if (!std::strcmp(name, "FocusColor"))
        return _focusColor;
    if (!std::strcmp(name, "Foreground"))
        return _foreground;
    if (!std::strcmp(name, "InactiveForeground"))
        return _inactiveForeground;
    return _background;
}

void UiRow::draw(UiCell::DrawArgs const& args) {
    UiCell::DrawArgs cell = args;
    cell.highlighted = _highlighted && _selectable;
    cell.enabled = _selectable;
    cell.background = cell.highlighted ? _focusColor : _background;
    cell.foreground = _selectable ? _foreground : _inactiveForeground;
    if (cell.highlighted) {
        if (args.state)
            if (SmContext* context = SmContext::getCurrentContext())
                context->applyStateObject(*args.state);
        SmGl::color3fv(_focusColor.data());
        SmGl::recti(args.rect.x1, args.rect.y1, args.rect.x2, args.rect.y2);
    }
    int x = args.rect.x1;
    for (auto const& c : _cells) {
        cell.rect = {x, x + c->getWidth(), args.rect.y1, args.rect.y2};
        x += c->getWidth();
        if (c->getWidth() <= 0)
            continue;
        // Each cell starts from the menu's state: an icon before it may have turned blending on.
        if (args.state)
            if (SmContext* context = SmContext::getCurrentContext())
                context->applyStateObject(*args.state);
        c->draw(cell);
    }
}

} // namespace Zr
