// A page surface that keeps its operations as JSON objects, in call order:
// the tests read them, bwtool writes them out one per line, and the Qt
// back-end replays a finished job from them onto a printer or a PDF page.
#pragma once

#include <map>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "sheets/PageSurface.h"

namespace bw {

struct PageArea {
    double left = 0, top = 0, width = 11520, height = 15120;  // US Letter, 0.25 inch margins
};

class RecordingSurface : public IPageSurface {
public:
    explicit RecordingSurface(PageArea area = {}, std::vector<std::string> fonts = {"Arial"});

    double PageLeft() override;
    double PageTop() override;
    double PageWidth() override;
    double PageHeight() override;
    std::vector<std::string> ListFonts() override;
    void SetFontName(const std::string& name) override;
    void SetFontSize(double points) override;
    void SetFontBold(bool bold) override;
    std::string FontName() const override { return font_; }
    double FontSize() const override { return size_; }
    bool FontBold() const override { return bold_; }
    double TextWidth(const std::string& text) override;
    double TextHeight(const std::string& text) override;
    void SetCurrentX(double x) override;
    void SetCurrentY(double y) override;
    double CurrentX() const override { return x_; }
    double CurrentY() const override { return y_; }
    void PrintText(const std::vector<std::string>& texts) override;
    void PaintPicture(const SheetPicture& picture, double x, double y, double width, double height) override;
    void SetFill(int16_t style, int32_t colour) override;
    void Circle(double x, double y, double radius, int32_t outline) override;
    void EndDoc() override;
    void KillDoc() override;

    // A line that is not a drawing operation (progress steps, message boxes),
    // kept in its place among the others.
    void Note(nlohmann::ordered_json op);
    // Every operation so far, and the same as JSON lines ending in "\n".
    const std::vector<nlohmann::ordered_json>& Ops() const { return ops_; }
    std::string JsonLines() const;
    void Clear();
    // False: operations are not kept (a surface that only measures).
    bool keep = true;

protected:
    // Opens a document on first use, with its Page line.
    void Begin();
    // The pictures painted, by name, for a back-end that replays the job.
    std::map<std::string, std::string> pictures_;
    // Index in Ops() of the open job's Page line.
    size_t jobStart_ = 0;
    bool open_ = false;

private:
    void Add(nlohmann::ordered_json op);
    PageArea area_;
    std::vector<std::string> fonts_;
    std::string font_ = "Arial";
    double size_ = 8;
    bool bold_ = false;
    double x_ = 0, y_ = 0;
    int16_t fillStyle_ = 1;
    int32_t fill_ = 0;
    std::vector<nlohmann::ordered_json> ops_;
};

}  // namespace bw
