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

    // The index that shows none.
    static constexpr int none = -1;

  private:
    int width_;
    int height_;
    HIMAGELIST list_;
};

// A list view window that asks for the rows it shows. Changes are gathered: the window takes them over when it is next
// painted, used or asked, however many there were.
class VirtualList : public ControlWindow {
  public:
    void Changed(Aspect aspect) override;
    HBRUSH Colors(HDC context) override { return OwnColors(context); }
    bool Notified(NMHDR& notice, LRESULT& result) override;
    void FontsChanged() override;

  protected:
    using ControlWindow::ControlWindow;
    void CreateList(DWORD style);

    // Shows pictures of the size that is right now, and a blank one behind them for rows that show none.
    void ShowImages(std::initializer_list<int> iconResources);
    int ImageWidth() const { return images_ ? images_->Width() : 0; }

    // Shows the control's state in the window.
    virtual void TakeOver() = 0;
    // Whether the window must stay as it is for now.
    virtual bool Frozen() const { return false; }
    // After the user has done something that may have moved rows or the selection.
    virtual void Used() {}
    // What the window asks for a row, counted from 0.
    virtual std::u16string_view RowText(int row, int column) const = 0;
    virtual int RowImage(int row) const = 0;
    virtual int RowCount() const = 0;

    LRESULT Procedure(UINT message, WPARAM wParam, LPARAM lParam) override;
    void ShowCaption() override {}
    // The state has changed: TakeOver will run.
    void Stale();
    // Now, if there is something to take over.
    void TakeOverNow();
    bool IsStale() const { return stale_; }
    // Whether TakeOver is at work, so that what the window says is an echo.
    bool TakingOver() const { return takingOver_.IsSet(); }

    void SetRowCount(int count);
    // Without an echo.
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
