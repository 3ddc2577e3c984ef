// The page surface: the one output of a print job. Lengths are twips (1440
// to the inch) from the surface's printable origin. A back-end draws on a
// printer, into a PDF, or records the calls; the sheets know only this.
//
// Texts are in the program's code page (Windows-1252); a back-end converts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bw {

// A picture as its holder keeps it: the art file's base name ("dt002") and
// its bytes, read whole by the loader.
struct SheetPicture {
    std::string name;
    std::string bytes;
    bool Loaded() const { return !bytes.empty(); }
};

class IPageSurface {
public:
    virtual ~IPageSurface() = default;

    virtual double PageLeft() = 0;
    virtual double PageTop() = 0;
    virtual double PageWidth() = 0;
    virtual double PageHeight() = 0;

    virtual std::vector<std::string> ListFonts() = 0;
    virtual void SetFontName(const std::string& name) = 0;
    virtual void SetFontSize(double points) = 0;
    virtual void SetFontBold(bool bold) = 0;
    virtual std::string FontName() const = 0;
    virtual double FontSize() const = 0;
    virtual bool FontBold() const = 0;

    virtual double TextWidth(const std::string& text) = 0;
    virtual double TextHeight(const std::string& text) = 0;

    // The pen position, x and y set separately.
    virtual void SetCurrentX(double x) = 0;
    virtual void SetCurrentY(double y) = 0;
    virtual double CurrentX() const = 0;
    virtual double CurrentY() const = 0;

    // Draws the texts one after the other at the pen in black, then moves
    // the pen to the page's left margin, one line lower.
    virtual void PrintText(const std::vector<std::string>& texts) = 0;
    // Draws the picture scaled to exactly the box.
    virtual void PaintPicture(const SheetPicture& picture, double x, double y, double width, double height) = 0;
    // Fill used by Circle: style 0 solid, 1 transparent; colour 0xBBGGRR.
    virtual void SetFill(int16_t style, int32_t colour) = 0;
    virtual void Circle(double x, double y, double radius, int32_t outline) = 0;

    virtual void EndDoc() = 0;
    virtual void KillDoc() = 0;
};

// The surface that print jobs draw on: the printer of the program, or what
// a caller installed (bwtool, the tests). Without one, jobs draw on a
// surface that keeps nothing.
IPageSurface& gPageSurface();
void SetPageSurface(IPageSurface* surface);

}  // namespace bw
