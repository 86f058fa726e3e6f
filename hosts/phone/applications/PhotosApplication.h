// The photo library.
#pragma once

#include "hosts/phone/applications/Application.h"

namespace phone {

class PhotosApplication : public Application {
public:
    PhotosApplication();

protected:
    std::shared_ptr<toolkit::UIView> makeView() override;
};

} // namespace phone
