#include "platform/wx/pictures.h"

#include <wx/bitmap.h>
#include <wx/bmpbndl.h>
#include <wx/brush.h>
#include <wx/graphics.h>
#include <wx/icon.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/pen.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <memory>

namespace brasquelin {

namespace {

// Every picture is drawn on a square of 24 units.
constexpr double units = 24;

const wxColour outline(0x55, 0x5b, 0x66);
const wxColour paper(0xf7, 0xf8, 0xfa);
const wxColour blue(0x2f, 0x7d, 0xc8);
const wxColour green(0x2e, 0x9e, 0x4f);
const wxColour red(0xcf, 0x45, 0x38);
const wxColour amber(0xe6, 0xa8, 0x2c);

void pen(wxGraphicsContext& canvas, const wxColour& colour, double width) {
    canvas.SetPen(canvas.CreatePen(wxGraphicsPenInfo(colour, width).Cap(wxCAP_ROUND).Join(wxJOIN_ROUND)));
}

void line(wxGraphicsContext& canvas, double x1, double y1, double x2, double y2) {
    canvas.StrokeLine(x1, y1, x2, y2);
}

void plus(wxGraphicsContext& canvas, double x, double y) {
    canvas.SetPen(*wxTRANSPARENT_PEN);
    canvas.SetBrush(wxBrush(green));
    canvas.DrawEllipse(x - 5, y - 5, 10, 10);
    pen(canvas, *wxWHITE, 2);
    line(canvas, x - 2.6, y, x + 2.6, y);
    line(canvas, x, y - 2.6, x, y + 2.6);
}

void playMark(wxGraphicsContext& canvas, double x, double y, double size) {
    wxGraphicsPath path = canvas.CreatePath();
    path.MoveToPoint(x, y);
    path.AddLineToPoint(x + size * 0.85, y + size / 2);
    path.AddLineToPoint(x, y + size);
    path.CloseSubpath();
    canvas.SetBrush(wxBrush(green));
    pen(canvas, *wxWHITE, 1);
    canvas.DrawPath(path);
}

void sheet(wxGraphicsContext& canvas) {
    pen(canvas, outline, 1.3);
    canvas.SetBrush(wxBrush(paper));
    wxGraphicsPath path = canvas.CreatePath();
    path.MoveToPoint(4, 2);
    path.AddLineToPoint(13, 2);
    path.AddLineToPoint(18, 7);
    path.AddLineToPoint(18, 22);
    path.AddLineToPoint(4, 22);
    path.CloseSubpath();
    canvas.DrawPath(path);
    line(canvas, 13, 2, 13, 7);
    line(canvas, 13, 7, 18, 7);
}

void sheetLines(wxGraphicsContext& canvas, const wxColour& colour) {
    pen(canvas, colour, 1.5);
    line(canvas, 7, 11, 15, 11);
    line(canvas, 7, 14.5, 15, 14.5);
    line(canvas, 7, 18, 12, 18);
}

void listBox(wxGraphicsContext& canvas) {
    pen(canvas, outline, 1.3);
    canvas.SetBrush(wxBrush(paper));
    canvas.DrawRoundedRectangle(2, 3, 18, 17, 2);
    pen(canvas, outline, 1.5);
    line(canvas, 5, 7.5, 16, 7.5);
    line(canvas, 5, 11.5, 16, 11.5);
    line(canvas, 5, 15.5, 12, 15.5);
}

void addLibrary(wxGraphicsContext& canvas) {
    pen(canvas, outline, 1.3);
    const std::array<wxColour, 3> spines{blue, amber, red};
    for (std::size_t i = 0; i < spines.size(); ++i) {
        const double left = 3 + 5.3 * static_cast<double>(i);
        canvas.SetBrush(wxBrush(spines[i]));
        canvas.DrawRoundedRectangle(left, i == 1 ? 5 : 3, 5, i == 1 ? 17 : 19, 1);
    }
    plus(canvas, 18, 18);
}

void addProfile(wxGraphicsContext& canvas) {
    sheet(canvas);
    sheetLines(canvas, blue);
    plus(canvas, 18, 18);
}

void clearJoblist(wxGraphicsContext& canvas) {
    listBox(canvas);
    canvas.SetPen(*wxTRANSPARENT_PEN);
    canvas.SetBrush(wxBrush(red));
    canvas.DrawEllipse(13, 13, 10, 10);
    pen(canvas, *wxWHITE, 2);
    line(canvas, 16, 16, 20, 20);
    line(canvas, 20, 16, 16, 20);
}

void executeLine(wxGraphicsContext& canvas) {
    listBox(canvas);
    canvas.SetPen(*wxTRANSPARENT_PEN);
    canvas.SetBrush(wxBrush(blue));
    canvas.DrawRectangle(2.7, 9.3, 16.6, 4.4);
    pen(canvas, *wxWHITE, 1.5);
    line(canvas, 5, 11.5, 13, 11.5);
    playMark(canvas, 15, 12, 10);
}

void executeJoblist(wxGraphicsContext& canvas) {
    listBox(canvas);
    playMark(canvas, 11, 8, 15);
}

void profileEditor(wxGraphicsContext& canvas) {
    sheet(canvas);
    sheetLines(canvas, outline);
    pen(canvas, outline, 1);
    canvas.PushState();
    canvas.Translate(11, 19);
    canvas.Rotate(-0.785);
    canvas.SetBrush(wxBrush(amber));
    canvas.DrawRectangle(2.5, -2, 11, 4);
    wxGraphicsPath tip = canvas.CreatePath();
    tip.MoveToPoint(2.5, -2);
    tip.AddLineToPoint(-1.5, 0);
    tip.AddLineToPoint(2.5, 2);
    tip.CloseSubpath();
    canvas.SetBrush(wxBrush(paper));
    canvas.DrawPath(tip);
    canvas.PopState();
}

void options(wxGraphicsContext& canvas) {
    constexpr int teeth = 8;
    wxGraphicsPath wheel = canvas.CreatePath();
    for (int i = 0; i < 4 * teeth; ++i) {
        const double angle = 6.283185 * (i - 0.5) / (4 * teeth);
        const double radius = i % 4 < 2 ? 10.5 : 7.8;
        const double x = 12 + radius * std::cos(angle);
        const double y = 12 + radius * std::sin(angle);
        if (i == 0) wheel.MoveToPoint(x, y);
        if (i > 0) wheel.AddLineToPoint(x, y);
    }
    wheel.CloseSubpath();
    wheel.AddCircle(12, 12, 3.4);
    pen(canvas, outline, 1.2);
    canvas.SetBrush(wxBrush(wxColour(0x9a, 0xa6, 0xb8)));
    canvas.DrawPath(wheel, wxODDEVEN_RULE);
}

void about(wxGraphicsContext& canvas) {
    canvas.SetPen(*wxTRANSPARENT_PEN);
    canvas.SetBrush(wxBrush(blue));
    canvas.DrawEllipse(2, 2, 20, 20);
    pen(canvas, *wxWHITE, 2.6);
    line(canvas, 12, 11, 12, 17);
    line(canvas, 12, 7, 12, 7.05);
}

void arrow(wxGraphicsContext& canvas, double tip, double foot) {
    const double shoulder = (tip + foot) / 2;
    wxGraphicsPath path = canvas.CreatePath();
    path.MoveToPoint(12, tip);
    path.AddLineToPoint(21, shoulder);
    path.AddLineToPoint(15.5, shoulder);
    path.AddLineToPoint(15.5, foot);
    path.AddLineToPoint(8.5, foot);
    path.AddLineToPoint(8.5, shoulder);
    path.AddLineToPoint(3, shoulder);
    path.CloseSubpath();
    canvas.SetBrush(wxBrush(blue));
    pen(canvas, outline, 1);
    canvas.DrawPath(path);
}

void moveUp(wxGraphicsContext& canvas) {
    arrow(canvas, 2, 22);
}

void moveDown(wxGraphicsContext& canvas) {
    arrow(canvas, 22, 2);
}

/// A dollar sign and a mark that tells of a menu.
void reference(wxGraphicsContext& canvas) {
    pen(canvas, blue, 2.4);
    wxGraphicsPath path = canvas.CreatePath();
    path.MoveToPoint(13.5, 7.5);
    path.AddCurveToPoint(11, 3.5, 3.5, 4.5, 3.5, 8.5);
    path.AddCurveToPoint(3.5, 13, 13.5, 11, 13.5, 15.5);
    path.AddCurveToPoint(13.5, 19.5, 6, 20.5, 3, 16.5);
    canvas.StrokePath(path);
    line(canvas, 8.5, 2, 8.5, 22);
    canvas.SetPen(*wxTRANSPARENT_PEN);
    canvas.SetBrush(wxBrush(outline));
    wxGraphicsPath mark = canvas.CreatePath();
    mark.MoveToPoint(16, 10);
    mark.AddLineToPoint(23.5, 10);
    mark.AddLineToPoint(19.75, 15);
    mark.CloseSubpath();
    canvas.FillPath(mark);
}

void program(wxGraphicsContext& canvas) {
    canvas.SetPen(*wxTRANSPARENT_PEN);
    canvas.SetBrush(wxBrush(wxColour(0x24, 0x3b, 0x5a)));
    canvas.DrawRoundedRectangle(1, 2, 22, 20, 4);
    pen(canvas, amber, 2.4);
    line(canvas, 5.5, 8, 9.5, 12);
    line(canvas, 9.5, 12, 5.5, 16);
    pen(canvas, paper, 2.2);
    line(canvas, 12, 8, 19, 8);
    line(canvas, 12, 12, 19, 12);
    line(canvas, 12, 16, 16, 16);
}

using Painter = void (*)(wxGraphicsContext&);

Painter painterOf(Picture which) {
    switch (which) {
        case Picture::addLibrary:
            return addLibrary;
        case Picture::addProfile:
            return addProfile;
        case Picture::clearJoblist:
            return clearJoblist;
        case Picture::executeLine:
            return executeLine;
        case Picture::executeJoblist:
            return executeJoblist;
        case Picture::profileEditor:
            return profileEditor;
        case Picture::options:
            return options;
        case Picture::about:
            return about;
        case Picture::moveUp:
            return moveUp;
        case Picture::moveDown:
            return moveDown;
        case Picture::reference:
            return reference;
        case Picture::program:
            break;
    }
    return program;
}

wxBitmap draw(Picture which, int side) {
    wxImage image(side, side);
    image.InitAlpha();
    std::fill_n(image.GetAlpha(), side * side, static_cast<unsigned char>(wxIMAGE_ALPHA_TRANSPARENT));
    {
        // The context writes into the image when it goes.
        const std::unique_ptr<wxGraphicsContext> canvas(wxGraphicsContext::Create(image));
        if (canvas) {
            canvas->SetAntialiasMode(wxANTIALIAS_DEFAULT);
            canvas->Scale(side / units, side / units);
            painterOf(which)(*canvas);
        }
    }
    return wxBitmap(image, 32);
}

/// Drawn in the sizes that are asked for, when they are.
class DrawnPicture : public wxBitmapBundleImpl {
  public:
    DrawnPicture(Picture which, int side) : which_(which), side_(side) {}

    wxSize GetDefaultSize() const override { return {side_, side_}; }
    wxSize GetPreferredBitmapSizeAtScale(double scale) const override { return GetDefaultSize() * scale; }
    wxBitmap GetBitmap(const wxSize& size) override {
        wxBitmap& bitmap = drawn_[size.x];
        if (!bitmap.IsOk()) bitmap = draw(which_, size.x);
        return bitmap;
    }

  private:
    Picture which_;
    int side_;
    std::map<int, wxBitmap> drawn_;
};

}  // namespace

wxBitmapBundle picture(Picture which, int side) {
    // The bundle owns it.
    return wxBitmapBundle::FromImpl(new DrawnPicture(which, side));  // NOLINT(clang-analyzer-cplusplus.NewDeleteLeaks)
}

namespace {

/// The program's own icon in one size; where the file has none, such as a test program, it is drawn.
wxIcon programIcon(int side) {
    wxIcon icon;
#ifdef __WXMSW__
    const wxLogNull silence;
    if (icon.LoadFile("aaaBrasquelin", wxBITMAP_TYPE_ICO_RESOURCE, side, side)) return icon;
#endif
    icon.CopyFromBitmap(draw(Picture::program, side));
    return icon;
}

}  // namespace

wxIconBundle programIcons() {
    static const wxIconBundle icons = [] {
        wxIconBundle sizes;
        for (const int side : {16, 32, 48, 64}) sizes.AddIcon(programIcon(side));
        return sizes;
    }();
    return icons;
}

}  // namespace brasquelin
