// The program's pictures: the vector drawings of the folder pictures/, so that they are sharp at every size.
#pragma once

#include <wx/bmpbndl.h>
#include <wx/iconbndl.h>

#include "platform/picture.h"

namespace brasquelin {

/// `side` is the width and height on a display without scaling; larger versions come along.
wxBitmapBundle picture(Picture which, int side);

wxIconBundle programIcons();

}  // namespace brasquelin
