#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "controls/ReentryFlag.h"
#include "platform/win32/peers/ControlWindow.h"

namespace korvanta {

// Images from the program's resources; sizes in pixels.
class ImageList {
  public:
    ImageList(int width, int height);
    ImageList(const ImageList&) = delete;
    ImageList& operator=(const ImageList&) = delete;
    ~ImageList() { ::ImageList_Destroy(list_); }

    void Add(int iconResource);
    void AddBlank();
    HIMAGELIST Get() const { return list_; }
    int Width() const { return width_; }

    // The index of no image.
    static constexpr int none = -1;

  private:
    int width_;
    int height_;
    HIMAGELIST list_;
};

// A list view window that asks for the texts of the rows it shows. A change only marks it stale: it takes over the
// control's state once when it is next painted, used or asked, however many changes there were.
class VirtualList : public ControlWindow {
  public:
    void Changed(Aspect aspect) override;
    HBRUSH Colors(HDC context) override { return OwnColors(context); }
    bool Notified(NMHDR& notice, LRESULT& result) override;
    void FontsChanged() override;

  protected:
    using ControlWindow::ControlWindow;
    void CreateList(DWORD style);

    // The images of the rows, in the size for the present resolution. A blank one follows them, for rows without an
    // image.
    void ShowImages(std::initializer_list<int> iconResources);
    int ImageWidth() const { return images_ ? images_->Width() : 0; }

    // Brings the window up to the control's state.
    virtual void TakeOver() = 0;
    // Whether the window has to stay as it is for now.
    virtual bool Frozen() const { return false; }
    // Called when the user has done something that may have scrolled the rows or moved the selection.
    virtual void AfterUse() {}
    // What the window asks for. Rows count from 0, without the header.
    virtual std::u16string_view RowText(int row, int column) const = 0;
    virtual int RowImage(int row) const = 0;
    virtual int RowCount() const = 0;

    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void ShowCaption() override {}
    // The control's state has changed: TakeOver will run.
    void MarkStale();
    // Runs TakeOver now, if the window is stale and not frozen.
    void TakeOverNow();
    bool IsStale() const { return stale_; }
    // Whether the program is changing the window, so that its notifications do not come from the user.
    bool TakingOver() const { return takingOver_.IsSet(); }

    void SetRowCount(int count);
    // Its notifications do not count as the user's.
    void SelectRow(int row, bool select);
    int Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return static_cast<int>(Send(message, wParam, lParam));
    }

  private:
    void MakeImages();
    void ShowColors() const;
    int FindRow(const NMLVFINDITEMW& wanted) const;

    std::vector<int> iconResources_;
    std::unique_ptr<ImageList> images_;
    bool stale_ = false;
    ReentryFlag takingOver_;
};

}  // namespace korvanta
