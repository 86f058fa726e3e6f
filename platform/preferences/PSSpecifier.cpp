#include "platform/preferences/PSSpecifier.h"

#include "platform/runtime/Message.h"

#include <algorithm>

using foundation::PropertyList;

namespace preferences {

runtime::Class& PSSpecifier::staticClass() {
    static auto& cls =
        runtime::ClassBuilder<PSSpecifier>("PSSpecifier", &runtime::Object::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(PSSpecifier)

std::shared_ptr<PSSpecifier> PSSpecifier::preferenceSpecifierNamed(std::string name, runtime::Object* target,
                                                                   std::optional<runtime::Selector> set,
                                                                   std::optional<runtime::Selector> get,
                                                                   std::string detail, PSCellType cell) {
    auto specifier = std::make_shared<PSSpecifier>(std::move(name), cell);
    specifier->target_ = target;
    specifier->setter_ = set;
    specifier->getter_ = get;
    specifier->detailControllerClass_ = std::move(detail);
    return specifier;
}

std::shared_ptr<PSSpecifier> PSSpecifier::groupSpecifierWithName(std::string name) {
    return std::make_shared<PSSpecifier>(std::move(name), PSCellType::Group);
}

std::shared_ptr<PSSpecifier> PSSpecifier::groupSpecifierWithFooterText(std::string footer) {
    auto group = emptyGroupSpecifier();
    group->setProperty(std::move(footer), keys::footerText);
    return group;
}

PropertyList PSSpecifier::performGetter() {
    if (!getter_)
        return {};
    const runtime::Message<PropertyList(std::shared_ptr<PSSpecifier>)> get{*getter_};
    return get(target(), std::static_pointer_cast<PSSpecifier>(shared_from_this()));
}

void PSSpecifier::performSetterWithValue(const PropertyList& value) {
    if (!setter_)
        return;
    const runtime::Message<void(PropertyList, std::shared_ptr<PSSpecifier>)> set{*setter_};
    set(target(), value, std::static_pointer_cast<PSSpecifier>(shared_from_this()));
}

void PSSpecifier::performButtonAction() {
    if (buttonAction_)
        runtime::Message<void()>{*buttonAction_}(target());
}

void PSSpecifier::performDeletionAction() {
    if (!deletionAction_)
        return;
    const runtime::Message<void(std::shared_ptr<PSSpecifier>)> removed{*deletionAction_};
    removed(target(), std::static_pointer_cast<PSSpecifier>(shared_from_this()));
}

const PropertyList& PSSpecifier::propertyForKey(const std::string& key) const {
    static const auto& nil = *new PropertyList; // never torn down
    const auto found = properties_.find(key);
    return found == properties_.end() ? nil : found->second;
}

void PSSpecifier::setProperty(PropertyList value, const std::string& key) {
    properties_[key] = std::move(value);
}

std::string PSSpecifier::textForKey(const std::string& key) const {
    const std::string* text = propertyForKey(key).string();
    return text ? *text : std::string();
}

std::shared_ptr<const toolkit::Image> PSSpecifier::iconImage() const {
    return iconImage_ ? iconImage_() : nullptr;
}

void PSSpecifier::setValues(std::vector<PropertyList> values, std::vector<std::string> titles) {
    titles.resize(values.size());
    values_ = std::move(values);
    titles_ = std::move(titles);
}

std::string PSSpecifier::titleForValue(const PropertyList& value) const {
    const auto found = std::find(values_.begin(), values_.end(), value);
    return found == values_.end() ? std::string()
                                  : titles_[static_cast<std::size_t>(found - values_.begin())];
}

} // namespace preferences
