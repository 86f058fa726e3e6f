#include "vela/settings/configurationVelaController.h"

#include "platform/runtime/Creation.h"
#include "vela/settings/PageState.h"
#include "vela/settings/leftSizeLandscapeCell.h"
#include "vela/settings/leftSizePortraitCell.h"
#include "vela/settings/rightSizeLandscapeCell.h"
#include "vela/settings/rightSizePortraitCell.h"
#include "vela/stores/PreferenceKeys.h"

using foundation::PropertyList;
using preferences::PSCellType;
using preferences::PSSpecifier;

namespace vela {

namespace {

constexpr double smallestPortraitSize = 0.55; // fractions of the screen
constexpr double smallestLandscapeSize = 0.3;
constexpr double largestSize = 0.95;

std::shared_ptr<PSSpecifier> groupWithFooter(const char* footer) {
    return PSSpecifier::groupSpecifierWithFooterText(footer);
}

std::shared_ptr<PSSpecifier> previewGroup(const char* cellClass) {
    auto group = PSSpecifier::emptyGroupSpecifier();
    group->setProperty(cellClass, preferences::keys::headerCellClass);
    return group;
}

/// Each preview cell that has been made.
template <class Function>
void forEachPreview(const Function& function) {
    const PageState& state = pageState();
    for (const std::shared_ptr<sizePreviewCell>& preview :
         std::initializer_list<std::shared_ptr<sizePreviewCell>>{
             state.leftPortraitCell, state.leftLandscapeCell, state.rightPortraitCell,
             state.rightLandscapeCell})
        if (preview)
            function(*preview);
}

/// The preview of the size that is kept under `key`; null for any other key.
std::shared_ptr<sizePreviewCell> previewForKey(const std::string& key) {
    if (key == keys::leftSizePortrait)
        return pageState().leftPortraitCell;
    if (key == keys::leftSizeLandscape)
        return pageState().leftLandscapeCell;
    if (key == keys::rightSizePortrait)
        return pageState().rightPortraitCell;
    if (key == keys::rightSizeLandscape)
        return pageState().rightLandscapeCell;
    return nullptr;
}

} // namespace

runtime::Class& configurationVelaController::staticClass() {
    static auto& cls = runtime::ClassBuilder<configurationVelaController>("configurationVelaController",
                                                                          &preferencePage::staticClass())
                           .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(configurationVelaController)

preferences::PSListController::Specifiers configurationVelaController::makeSpecifiers() {
    Specifiers rows{
        groupWithFooter("Change the blur style of Vela. Automatic switches between dark and light for a "
                        "better legibility."),
        listRow(keys::blur, {"dark", "light", "auto"}, {"Dark", "Light", "Automatic"})};
    for (const Specifiers& more : {sizeRows(), switchRows(), grabberAndSongRows(), managementRows()})
        rows.insert(rows.end(), more.begin(), more.end());
    return rows;
}

preferences::PSListController::Specifiers configurationVelaController::sizeRows() {
    return {
        groupWithFooter("Change the the size of the left controller when the device is in Portrait mode."),
        sliderRow(keys::leftSizePortrait, smallestPortraitSize),
        previewGroup("leftSizePortraitCell"),
        groupWithFooter("Change the the size of the left controller when the device is in Landscape mode."),
        sliderRow(keys::leftSizeLandscape, smallestLandscapeSize),
        previewGroup("leftSizeLandscapeCell"),
        groupWithFooter("Change the the size of the right controller when the device is in Portrait mode."),
        sliderRow(keys::rightSizePortrait, smallestPortraitSize),
        previewGroup("rightSizePortraitCell"),
        groupWithFooter("Change the the size of the right controller when the device is in Landscape mode."),
        sliderRow(keys::rightSizeLandscape, smallestLandscapeSize),
        previewGroup("rightSizeLandscapeCell")};
}

preferences::PSListController::Specifiers configurationVelaController::switchRows() {
    return {
        groupWithFooter("If disabled Vela will not be accessible from Lockscreen"),
        switchRow(keys::lockscreen),
        groupWithFooter("Use alternative chevrons in both of Vela's controller"),
        switchRow(keys::alternativeChevrons),
        groupWithFooter("Disable the left Controller of Vela"),
        switchRow(keys::disableLeftController),
        groupWithFooter("When the keyboard is visible Vela will not be callable"),
        switchRow(keys::keyboard),
        groupWithFooter("If enabled the lyric on the right controller will auto scroll based on the elapsed "
                        "time of the now playing song."),
        switchRow(keys::autoscroll)};
}

preferences::PSListController::Specifiers configurationVelaController::grabberAndSongRows() {
    return {
        groupWithFooter("Change the sensibility of the interaction grabber to invoke Vela."),
        listRow(keys::sensibility, {"height", "normal", "low"}, {"Height", "Normal", "Low"}),
        groupWithFooter("Change the size of the interaction grabber to invoke Vela to get a better swipe to "
                        "go back gesture(iOS)."),
        listRow(keys::grabberHeight, {"full", "half_top", "half_bottom"},
                {"Full height", "Half height Top", "Half height Bottom"}),
        groupWithFooter("Change the type of songs that gets loaded at the of the right controller."),
        listRow(keys::loadSongsWith, {"artist", "album"}, {"Same artist", "Same album"})};
}

preferences::PSListController::Specifiers configurationVelaController::managementRows() {
    return {
        groupWithFooter("Here you can disable Vela for specific apps."),
        linkRow("Disable for apps", "restrictionController"),
        groupWithFooter("When you are listening the radio or in general a song that isn't in your songs "
                        "library Vela tries to download an artwork image and save it your disc for future "
                        "usage. Here you can delete artwork images to free space."),
        linkRow("Manage artworks", "artworksController"),
        groupWithFooter("Here you can manage downloaded lyrics by Vela."),
        linkRow("Manage lyrics", "lyricsController")};
}

std::shared_ptr<PSSpecifier> configurationVelaController::listRow(const std::string& key,
                                                                  std::vector<PropertyList> values,
                                                                  std::vector<std::string> titles) {
    auto row = valueRow(key, "PSListItemsController", PSCellType::LinkList);
    row->setValues(std::move(values), std::move(titles));
    return row;
}

std::shared_ptr<PSSpecifier> configurationVelaController::sliderRow(const std::string& key, double minimum) {
    auto row = valueRow(key, "", PSCellType::Slider);
    row->setProperty(minimum, preferences::keys::minimum);
    row->setProperty(largestSize, preferences::keys::maximum);
    row->setProperty(true, preferences::keys::isContinuous);
    return row;
}

void configurationVelaController::viewDidLayoutSubviews() {
    preferencePage::viewDidLayoutSubviews();
    measurePage(*this);
}

void configurationVelaController::willStore(const PropertyList& value, const std::string& key) {
    if (key == keys::enable)
        animateHeader(value.boolValue());
    if (const auto preview = previewForKey(key))
        preview->refreshWithValue(value.floatValue());
    if (key == keys::blur)
        forEachPreview([&](sizePreviewCell& preview) { preview.setBlurStyle(value); });
}

} // namespace vela
