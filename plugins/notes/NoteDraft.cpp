#include "NoteDraft.h"

namespace notesplugin {

bool NoteDraft::save(std::string text, std::int64_t now) {
    if (id_)
        return notebook_->update(*id_, std::move(text), now);
    if (text.empty())
        return true;
    id_ = notebook_->add(std::move(text), now);
    return id_.has_value();
}

bool NoteDraft::leave(const std::string& text) {
    return !text.empty() || remove();
}

bool NoteDraft::remove() {
    if (id_ && !notebook_->remove(*id_))
        return false;
    id_.reset();
    return true;
}

} // namespace notesplugin
