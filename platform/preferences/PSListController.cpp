#include "platform/preferences/PSListController.h"

#include "platform/preferences/UINavigationController.h"
#include "platform/runtime/Creation.h"

#include <algorithm>

using foundation::PropertyList;

namespace preferences {

runtime::Class& PSListController::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<PSListController>("PSListController", &PSViewController::staticClass())
            .method("reloadSpecifiers", &PSListController::reloadSpecifiers)
            .build();
    return cls;
}
RUNTIME_REGISTER_CREATABLE_CLASS(PSListController)

const PSListController::Specifiers& PSListController::specifiers() {
    if (specifiers_.empty())
        specifiers_ = makeSpecifiers();
    return specifiers_;
}

std::vector<PSListController::Section> PSListController::sections() {
    std::vector<Section> sections;
    for (const auto& specifier : specifiers()) {
        if (specifier->isGroup())
            sections.push_back({specifier, {}});
        else if (sections.empty())
            sections.push_back({nullptr, {specifier}});
        else
            sections.back().rows.push_back(specifier);
    }
    return sections;
}

std::shared_ptr<PSSpecifier> PSListController::specifierForID(const std::string& identifier) {
    const auto& all = specifiers();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto& specifier) {
        return !specifier->isGroup() && specifier->identifier() == identifier;
    });
    return found == all.end() ? nullptr : *found;
}

void PSListController::setSpecifiers(Specifiers specifiers) {
    specifiers_ = std::move(specifiers);
    reloadSpecifiers();
}

void PSListController::reloadSpecifiers() {
    cells_.clear();
    if (observer_)
        observer_->specifiersReloaded();
}

void PSListController::reloadSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
    cells_.erase(specifier.get());
    if (observer_)
        observer_->specifierChanged(specifier);
}

void PSListController::addSpecifier(std::shared_ptr<PSSpecifier> specifier, bool animated) {
    if (!specifier)
        return;
    specifiers_.push_back(std::move(specifier));
    if (observer_)
        observer_->specifierAdded(specifiers_.size() - 1, animated);
}

void PSListController::removeSpecifier(const std::shared_ptr<PSSpecifier>& specifier, bool animated) {
    const auto found = std::find(specifiers_.begin(), specifiers_.end(), specifier);
    if (found == specifiers_.end())
        return;
    const auto index = static_cast<std::size_t>(found - specifiers_.begin());
    cells_.erase(specifier.get());
    specifiers_.erase(found);
    if (observer_)
        observer_->specifierRemoved(index, animated);
}

std::shared_ptr<PSTableCell>
PSListController::cellForSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
    return cellOfClass(specifier->textForKey(keys::cellClass), specifier);
}

std::shared_ptr<PSTableCell> PSListController::headerCellForGroup(const std::shared_ptr<PSSpecifier>& group) {
    return cellOfClass(group->textForKey(keys::headerCellClass), group);
}

std::shared_ptr<PSTableCell> PSListController::cellOfClass(const std::string& className,
                                                           const std::shared_ptr<PSSpecifier>& specifier) {
    if (const auto found = cells_.find(specifier.get()); found != cells_.end())
        return found->second;
    auto cell = runtime::createInstanceOf<PSTableCell>(className);
    if (!cell)
        return nullptr;
    cell->initWithSpecifier(specifier);
    const double width = view()->bounds().width;
    cell->setFrame({0, 0, width, cell->preferredHeightForWidth(width)});
    cells_[specifier.get()] = cell;
    return cell;
}

void PSListController::selectSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
    if (specifier->buttonAction())
        specifier->performButtonAction();
    else
        pushController(controllerForSpecifier(specifier));
}

std::shared_ptr<PSViewController>
PSListController::controllerForSpecifier(const std::shared_ptr<PSSpecifier>& specifier) {
    auto controller = runtime::createInstanceOf<PSViewController>(specifier->detailControllerClass());
    if (controller)
        controller->setSpecifier(specifier);
    return controller;
}

void PSListController::pushController(std::shared_ptr<PSViewController> controller) {
    if (navigationController())
        navigationController()->pushViewController(std::move(controller), true);
}

void PSListController::setValueSoon(const PropertyList& value,
                                    const std::shared_ptr<PSSpecifier>& specifier) {
    pendingValues_.set(value, specifier);
}

void PSListController::viewWillDisappear(bool animated) {
    pendingValues_.flush();
    PSViewController::viewWillDisappear(animated);
}

} // namespace preferences
