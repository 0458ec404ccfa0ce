#include "platform/wx/pictures.h"

#include <wx/bitmap.h>
#include <wx/icon.h>
#include <wx/log.h>
#include <wx/settings.h>

#include <vector>

#include "pictureTexts.h"

namespace brasquelin {

namespace {

const char* textOf(Picture which) {
    switch (which) {
        case Picture::addLibrary:
            return pictureTexts::addLibrary;
        case Picture::addProfile:
            return pictureTexts::addProfile;
        case Picture::clearJoblist:
            return pictureTexts::clearJoblist;
        case Picture::executeLine:
            return pictureTexts::executeLine;
        case Picture::executeJoblist:
            return pictureTexts::executeJoblist;
        case Picture::profileEditor:
            return pictureTexts::profileEditor;
        case Picture::options:
            return pictureTexts::options;
        case Picture::about:
            return pictureTexts::about;
        case Picture::moveUp:
            return pictureTexts::moveUp;
        case Picture::moveDown:
            return pictureTexts::moveDown;
        case Picture::reference:
            return pictureTexts::reference;
        case Picture::jobWaiting:
            return pictureTexts::jobWaiting;
        case Picture::jobRunning:
            return pictureTexts::jobRunning;
        case Picture::jobDone:
            return pictureTexts::jobDone;
        case Picture::jobFailed:
            return pictureTexts::jobFailed;
        case Picture::jobLeftOut:
            return pictureTexts::jobLeftOut;
        case Picture::program:
            break;
    }
    return pictureTexts::program;
}

/// The program's own icon in one size; where the file has none, such as a test program, it is drawn.
wxIcon programIcon(int side) {
    wxIcon icon;
#ifdef __WXMSW__
    const wxLogNull silence;
    if (icon.LoadFile("aaaBrasquelin", wxBITMAP_TYPE_ICO_RESOURCE, side, side)) return icon;
#endif
    icon.CopyFromBitmap(picture(Picture::program, side).GetBitmap(wxSize(side, side)));
    return icon;
}

std::vector<int> iconSides() {
#ifdef __WXMSW__
    // Windows shows no others, and each takes its time at the start.
    return {wxSystemSettings::GetMetric(wxSYS_SMALLICON_X), wxSystemSettings::GetMetric(wxSYS_ICON_X)};
#else
    return {16, 32, 48, 64};
#endif
}

}  // namespace

wxBitmapBundle picture(Picture which, int side) {
    return wxBitmapBundle::FromSVG(textOf(which), wxSize(side, side));
}

wxIconBundle programIcons() {
    static const wxIconBundle icons = [] {
        wxIconBundle sizes;
        for (const int side : iconSides()) sizes.AddIcon(programIcon(side));
        return sizes;
    }();
    return icons;
}

}  // namespace brasquelin
