#include "platform/toolkit/views/TextCaret.h"

#include "platform/foundation/RunLoop.h"

namespace toolkit {

runtime::Class& TextCaret::staticClass() {
    static auto& cls = runtime::ClassBuilder<TextCaret>("TextCaret", &UIView::staticClass()).build();
    return cls;
}
RUNTIME_REGISTER_CLASS(TextCaret)

TextCaret::TextCaret() {
    setBackgroundColor(Color::rgba(0.26, 0.42, 0.95));
    layer()->setCornerRadius(width / 2);
    setUserInteractionEnabled(false);
    setHidden(true);
}

void TextCaret::showAt(Rect caret) {
    setFrame({caret.x, caret.y, width, caret.height});
    setHidden(false);
    blink_ =
        foundation::RunLoop::main().scheduleTimer(blinkInterval, true, [this] { setHidden(!isHidden()); });
}

void TextCaret::hide() {
    blink_.reset();
    setHidden(true);
}

} // namespace toolkit
