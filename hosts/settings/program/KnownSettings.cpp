#include "hosts/settings/program/KnownSettings.h"

#include "hosts/script/PreferenceValue.h"
#include "platform/preferences/PSEditableListController.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace settings {

using foundation::PropertyList;
using preferences::PSCellType;
using preferences::PSListController;
using preferences::PSSpecifier;

namespace {

std::string numberText(double number) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

bool hasValue(const PSSpecifier& row) {
    return row.cellType() == PSCellType::Switch || row.cellType() == PSCellType::Slider ||
           row.cellType() == PSCellType::LinkList;
}

std::string textOf(const PropertyList& value) {
    if (value.isString())
        return *value.string();
    return value.isBool() ? (value.boolValue() ? "on" : "off") : numberText(value.doubleValue());
}

PropertyList parseSlider(const PSSpecifier& row, const std::string& text) {
    const double number = script::parseNumber(text, "the value");
    const double least = row.propertyForKey(preferences::keys::minimum).doubleValue();
    const double most = row.propertyForKey(preferences::keys::maximum).doubleValue();
    if (number < least || number > most)
        throw std::invalid_argument(text + " is not between " + numberText(least) + " and " +
                                    numberText(most));
    return number;
}

PropertyList parseChoice(const PSSpecifier& row, const std::string& text) {
    const auto& values = row.values();
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&](const PropertyList& value) { return textOf(value) == text; });
    if (found == values.end())
        throw std::invalid_argument("\"" + text + "\" is none of " + KnownSettings::describeValues(row));
    return *found;
}

} // namespace

KnownSettings::KnownSettings(const std::vector<std::shared_ptr<preferences::PSViewController>>& roots,
                             std::function<void()> settle)
    : settle_(std::move(settle)) {
    for (const auto& root : roots)
        walk(root);
}

void KnownSettings::walk(const std::shared_ptr<preferences::PSViewController>& page) {
    const auto list = std::dynamic_pointer_cast<PSListController>(page);
    if (!list || !visited_.insert(page->isa().name()).second)
        return;
    // The rows of a list that can be edited are things that are stored, not settings.
    if (std::dynamic_pointer_cast<preferences::PSEditableListController>(page))
        return;
    pages_.push_back(page);
    if (list->specifiers().empty()) {
        list->viewDidAppear(false); // a page may fill itself only then
        settle_();
    }
    for (const Row& row : PSListController::Specifiers(list->specifiers()))
        take(*list, row);
}

void KnownSettings::take(PSListController& page, const Row& row) {
    if (hasValue(*row)) {
        if (!row->identifier().empty() && !find(row->identifier()))
            rows_.push_back(row);
    } else if (!row->buttonAction()) {
        walk(page.controllerForSpecifier(row));
    }
}

KnownSettings::Row KnownSettings::find(const std::string& key) const {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return row->identifier() == key; });
    return found == rows_.end() ? nullptr : *found;
}

std::string KnownSettings::describeValues(const PSSpecifier& row) {
    if (row.cellType() == PSCellType::Switch)
        return "on, off";
    if (row.cellType() == PSCellType::Slider)
        return numberText(row.propertyForKey(preferences::keys::minimum).doubleValue()) + " to " +
               numberText(row.propertyForKey(preferences::keys::maximum).doubleValue());
    std::string text;
    for (const PropertyList& value : row.values())
        text += (text.empty() ? "" : ", ") + textOf(value);
    return text;
}

std::optional<std::string> KnownSettings::valueText(PSSpecifier& row) {
    const PropertyList value = row.performGetter();
    if (value.isNil())
        return std::nullopt;
    // As the row would show it, whatever type the value has been stored with.
    if (row.cellType() == PSCellType::Switch)
        return value.boolValue() ? "on" : "off";
    return row.cellType() == PSCellType::Slider ? numberText(value.doubleValue()) : textOf(value);
}

PropertyList KnownSettings::parseValue(const PSSpecifier& row, const std::string& text) {
    if (row.cellType() == PSCellType::Switch)
        return script::parsePreferenceValue("bool", text);
    return row.cellType() == PSCellType::Slider ? parseSlider(row, text) : parseChoice(row, text);
}

} // namespace settings
