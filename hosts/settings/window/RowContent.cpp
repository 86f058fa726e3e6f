#include "hosts/settings/window/RowContent.h"

#include "hosts/gtk/Texture.h"
#include "hosts/settings/window/Accessibility.h"
#include "hosts/settings/window/Attached.h"
#include "hosts/settings/window/Style.h"
#include "hosts/settings/window/Text.h"
#include "hosts/settings/window/Turn.h"
#include "platform/foundation/RunLoop.h"
#include "platform/preferences/PSSwitchTableCell.h"

#include <cmath>

namespace settings {

using foundation::PropertyList;
using preferences::PSCellType;

namespace {

constexpr const char* contentKey = "vela-row-content";
constexpr int spacing = 12;
constexpr int iconSize = 29;
/// How far, in GTK's units, a swipe goes before it is one, and before the row's button comes up.
constexpr double swipeBegin = 12;
constexpr double swipeEnough = 48;
/// Steps of a slider for the arrow keys and for Page Up and Down, as fractions of its range.
constexpr double smallStep = 0.01;
constexpr double largeStep = 0.1;
/// Seconds after a change by hand for which a slider shows that change, whatever is stored.
constexpr double slideTime = 0.3;

GtkWidget* newLabel(const char* styleClass) {
    GtkWidget* label = gtk_label_new(nullptr);
    if (styleClass)
        gtk_widget_add_css_class(label, styleClass);
    return label;
}

/// A page that is scrolled with the wheel is not to change a value on the way.
void ignoreWheel(GtkWidget* widget) {
    GListModel* controllers = gtk_widget_observe_controllers(widget);
    for (guint i = 0; i < g_list_model_get_n_items(controllers); ++i) {
        auto* controller = GTK_EVENT_CONTROLLER(g_list_model_get_item(controllers, i));
        if (GTK_IS_EVENT_CONTROLLER_SCROLL(controller))
            gtk_event_controller_set_propagation_phase(controller, GTK_PHASE_NONE);
        g_object_unref(controller);
    }
    g_object_unref(controllers);
}

} // namespace

RowContent& RowContent::make(Deletion deletion) {
    GtkWidget* box = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, spacing);
    RowContent& row = attach<RowContent>(box, box, std::move(deletion));
    g_object_set_data(G_OBJECT(box), contentKey, &row);
    return row;
}

RowContent* RowContent::within(GtkWidget* holder) {
    GtkWidget* child = holder ? gtk_widget_get_first_child(holder) : nullptr;
    return child ? static_cast<RowContent*>(g_object_get_data(G_OBJECT(child), contentKey)) : nullptr;
}

RowContent* RowContent::focusedIn(GtkWidget* list) {
    GtkWidget* holder = gtk_root_get_focus(gtk_widget_get_root(list));
    while (holder && gtk_widget_get_parent(holder) != list)
        holder = gtk_widget_get_parent(holder);
    return within(holder);
}

RowContent::RowContent(GtkWidget* box, Deletion deletion) : box_(box), deletion_(std::move(deletion)) {
    build();
    if (deletion_)
        addSwipe();
}

RowContent::~RowContent() {
    // The parts within, whose signals come here, have gone before.
    g_object_set_data(G_OBJECT(box_), contentKey, nullptr);
}

void RowContent::build() {
    gtk_widget_add_css_class(box_, "row-content");
    icon_ = gtk_image_new();
    gtk_image_set_pixel_size(GTK_IMAGE(icon_), iconSize);
    title_ = newLabel(nullptr);
    gtk_label_set_xalign(GTK_LABEL(title_), 0);
    gtk_label_set_ellipsize(GTK_LABEL(title_), PANGO_ELLIPSIZE_END);
    gtk_label_set_single_line_mode(GTK_LABEL(title_), TRUE);
    gtk_widget_set_hexpand(title_, TRUE);
    scale_ = gtk_scale_new_with_range(GTK_ORIENTATION_HORIZONTAL, 0, 1, smallStep);
    gtk_scale_set_draw_value(GTK_SCALE(scale_), FALSE);
    gtk_widget_set_hexpand(scale_, TRUE);
    ignoreWheel(scale_);
    value_ = newLabel("dim-label");
    gtk_label_set_ellipsize(GTK_LABEL(value_), PANGO_ELLIPSIZE_END);
    switch_ = gtk_switch_new();
    gtk_widget_set_valign(switch_, GTK_ALIGN_CENTER);
    mark_ = gtk_image_new();
    deleteButton_ = gtk_button_new_with_label("Delete");
    gtk_widget_add_css_class(deleteButton_, "destructive-action");
    gtk_widget_set_valign(deleteButton_, GTK_ALIGN_CENTER);
    deleteRevealer_ = gtk_revealer_new();
    gtk_revealer_set_transition_type(GTK_REVEALER(deleteRevealer_), GTK_REVEALER_TRANSITION_TYPE_SLIDE_LEFT);
    gtk_revealer_set_child(GTK_REVEALER(deleteRevealer_), deleteButton_);
    gtk_widget_set_visible(deleteRevealer_, FALSE);
    for (GtkWidget* part : {icon_, title_, scale_, value_, switch_, mark_, deleteRevealer_})
        gtk_box_append(GTK_BOX(box_), part);
    g_signal_connect_swapped(switch_, "notify::active", G_CALLBACK(+[](RowContent* self) {
                                 self->switched(gtk_switch_get_active(GTK_SWITCH(self->switch_)));
                             }),
                             this);
    g_signal_connect_swapped(scale_, "value-changed", G_CALLBACK(+[](RowContent* self) { self->slid(); }),
                             this);
    g_signal_connect_swapped(deleteButton_, "clicked",
                             G_CALLBACK(+[](RowContent* self) { self->performDeletion(); }), this);
}

void RowContent::addSwipe() {
    GtkGesture* drag = gtk_gesture_drag_new();
    g_signal_connect(drag, "drag-update",
                     G_CALLBACK(+[](GtkGestureDrag* gesture, double x, double y, gpointer data) {
                         auto* self = static_cast<RowContent*>(data);
                         if (std::abs(x) < swipeBegin || std::abs(x) < 2 * std::abs(y))
                             return;
                         gtk_gesture_set_state(GTK_GESTURE(gesture), GTK_EVENT_SEQUENCE_CLAIMED);
                         if (std::abs(x) >= swipeEnough)
                             self->setDeleteShown(x < 0);
                     }),
                     this);
    gtk_event_controller_set_propagation_phase(GTK_EVENT_CONTROLLER(drag), GTK_PHASE_CAPTURE);
    gtk_widget_add_controller(box_, GTK_EVENT_CONTROLLER(drag));

    // The other button of a mouse, and a long press, bring it up too.
    GtkGesture* click = gtk_gesture_click_new();
    gtk_gesture_single_set_button(GTK_GESTURE_SINGLE(click), GDK_BUTTON_SECONDARY);
    g_signal_connect_swapped(click, "pressed",
                             G_CALLBACK(+[](RowContent* self) { self->setDeleteShown(true); }), this);
    gtk_widget_add_controller(box_, GTK_EVENT_CONTROLLER(click));
}

void RowContent::show(std::shared_ptr<preferences::PSListController> page,
                      std::shared_ptr<preferences::PSSpecifier> specifier) {
    page_ = std::move(page);
    specifier_ = std::move(specifier);
    setDeleteShown(false);
    gtk_label_set_text(GTK_LABEL(title_), displayed(specifier_->name()).c_str());
    showIcon();
    showControls();
    refresh();
}

void RowContent::clear() {
    page_.reset();
    specifier_.reset();
    gtk_image_clear(GTK_IMAGE(icon_));
}

void RowContent::showIcon() {
    const auto icon = specifier_->iconImage();
    gtk_widget_set_visible(icon_, icon != nullptr);
    if (icon)
        gtk_image_set_from_paintable(GTK_IMAGE(icon_), GDK_PAINTABLE(gtk::makeTexture(*icon).get()));
    else
        gtk_image_clear(GTK_IMAGE(icon_));
}

void RowContent::showControls() {
    const PSCellType type = specifier_->cellType();
    const bool isSlider = type == PSCellType::Slider, isSwitch = type == PSCellType::Switch,
               isList = type == PSCellType::LinkList;
    gtk_widget_set_visible(title_, !isSlider);
    gtk_widget_set_visible(scale_, isSlider);
    gtk_widget_set_visible(switch_, isSwitch);
    gtk_widget_set_visible(value_, isList);
    gtk_widget_set_visible(mark_, isList || type == PSCellType::Link || type == PSCellType::ListItem);
    gtk_image_set_from_icon_name(GTK_IMAGE(mark_), type == PSCellType::ListItem ? "object-select-symbolic"
                                                                                : "go-next-symbolic");
    gtk_widget_set_opacity(mark_, 1);
    if (isSwitch)
        tintSwitch();
    if (isSwitch || isSlider)
        nameControl(isSwitch ? switch_ : scale_);
    const std::string deleteName = "Delete " + displayed(specifier_->name());
    setAccessibleName(deleteButton_, deleteName);
}

void RowContent::nameControl(GtkWidget* control) const {
    setAccessibleName(control, specifier_->name());
}

void RowContent::tintSwitch() {
    if (!tintClass_.empty())
        gtk_widget_remove_css_class(switch_, tintClass_.c_str());
    const auto cell =
        std::dynamic_pointer_cast<preferences::PSSwitchTableCell>(page_->cellForSpecifier(specifier_));
    tintClass_ = cell ? tintStyleClass(cell->control()->onTintColor()) : "";
    if (!tintClass_.empty())
        gtk_widget_add_css_class(switch_, tintClass_.c_str());
}

void RowContent::refresh() {
    if (!specifier_)
        return;
    refreshing_ = true;
    const PropertyList value = specifier_->performGetter();
    switch (specifier_->cellType()) {
    case PSCellType::Switch:
        // Setting what it is already would undo a turn that is just being animated.
        if (gtk_switch_get_active(GTK_SWITCH(switch_)) != value.boolValue())
            gtk_switch_set_active(GTK_SWITCH(switch_), value.boolValue());
        break;
    case PSCellType::Slider:
        refreshSlider(value);
        break;
    case PSCellType::LinkList:
        gtk_label_set_text(GTK_LABEL(value_), displayed(specifier_->titleForValue(value)).c_str());
        break;
    case PSCellType::ListItem:
        gtk_widget_set_opacity(mark_, page_->isSpecifierChecked(specifier_) ? 1 : 0);
        break;
    default:
        break;
    }
    refreshing_ = false;
}

void RowContent::refreshSlider(const PropertyList& value) {
    using namespace preferences;
    // What is stored lags behind a slider that is being moved.
    if (foundation::RunLoop::main().now() < slidUntil_)
        return;
    const double least = specifier_->propertyForKey(keys::minimum).doubleValue();
    const double most = specifier_->propertyForKey(keys::maximum).doubleValue();
    if (!(most > least))
        return;
    gtk_range_set_range(GTK_RANGE(scale_), least, most);
    gtk_range_set_increments(GTK_RANGE(scale_), (most - least) * smallStep, (most - least) * largeStep);
    gtk_range_set_value(GTK_RANGE(scale_), value.doubleValue());
}

void RowContent::describe(GtkWidget* holder) const {
    if (!holder || !specifier_)
        return;
    std::string name = displayed(specifier_->name());
    if (specifier_->cellType() == PSCellType::LinkList) {
        const char* chosen = gtk_label_get_text(GTK_LABEL(value_));
        name += *chosen ? std::string(", ") + chosen : "";
    }
    setAccessibleName(holder, name);
    if (specifier_->cellType() == PSCellType::ListItem)
        gtk_accessible_update_state(GTK_ACCESSIBLE(holder), GTK_ACCESSIBLE_STATE_SELECTED,
                                    page_->isSpecifierChecked(specifier_), -1);
    if (specifier_->deletionAction())
        gtk_accessible_update_property(GTK_ACCESSIBLE(holder), GTK_ACCESSIBLE_PROPERTY_KEY_SHORTCUTS,
                                       "Delete", -1);
}

bool RowContent::isActivatable() const {
    if (!specifier_)
        return false;
    const PSCellType type = specifier_->cellType();
    return type == PSCellType::Link || type == PSCellType::LinkList || type == PSCellType::ListItem ||
           type == PSCellType::Switch || specifier_->buttonAction().has_value();
}

void RowContent::activate() {
    if (!specifier_)
        return;
    if (gtk_revealer_get_reveal_child(GTK_REVEALER(deleteRevealer_)))
        setDeleteShown(false); // a tap beside the button
    else if (specifier_->cellType() == PSCellType::Switch)
        gtk_widget_activate(switch_);
    else {
        const auto page = page_; // the row may be gone afterwards
        page->selectSpecifier(specifier_);
        endTurn();
    }
}

void RowContent::performDeletion() {
    if (!deletion_ || !specifier_ || !specifier_->deletionAction())
        return;
    // The row's widget may go with the row.
    const Deletion deletion = deletion_;
    const auto deleted = specifier_;
    deletion(deleted);
}

void RowContent::setDeleteShown(bool shown) {
    const bool reveals = shown && deletion_ && specifier_ && specifier_->deletionAction();
    gtk_widget_set_visible(deleteRevealer_, reveals);
    gtk_revealer_set_reveal_child(GTK_REVEALER(deleteRevealer_), reveals);
}

void RowContent::switched(bool on) {
    if (refreshing_ || !specifier_)
        return;
    specifier_->performSetterWithValue(on);
    endTurn();
}

void RowContent::slid() {
    if (refreshing_ || !specifier_)
        return;
    slidUntil_ = foundation::RunLoop::main().now() + slideTime;
    page_->setValueSoon(gtk_range_get_value(GTK_RANGE(scale_)), specifier_);
    endTurn();
}

} // namespace settings
