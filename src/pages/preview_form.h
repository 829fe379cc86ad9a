#pragma once

#include <array>
#include <memory>
#include <string>
#include <utility>

#include "controls/text_form.h"
#include "pages/page_player.h"
#include "pages/print_preview.h"

namespace tav {

/// Shows the pages of a report one at a time, with zoom and paging, and sends them to a printer or a PDF file. Made
/// anew for every report; zoom and size are kept in the settings.
class PrintPrev : public TextForm {
 public:
  PrintPrev(const PrintPreview& report, Platform platform);

  enum Command { Refresh, ZoomIn, ZoomOut, Print, SetUp, First, Previous, Next, Last, Nothing, Close };
  Button cmdZoomIn{*this, "Cmd_1"};
  Button cmdZoomOut{*this, "Cmd_2"};
  Button cmdPrint{*this, "Cmd_3"};
  Button cmdSetUp{*this, "Cmd_4"};
  Button cmdFirst{*this, "Cmd_5"};
  Button cmdPrevious{*this, "Cmd_6"};
  Button cmdNext{*this, "Cmd_7"};
  Button cmdLast{*this, "Cmd_8"};
  Button cmdClose{*this, "Cmd_10"};
  Button cbPdf{*this, "cbPdf"};
  Label lbPage{*this, "lbPage"};
  PageView Prv{*this, "Prv"};

  void Cmd_Click(Command index);
  [[nodiscard]] std::string getPageNr() const { return std::to_string(page_); }
  [[nodiscard]] std::string getPageMax() const { return std::to_string(pageMax_); }
  void setPageMax(int pages);
  [[nodiscard]] Single ZoomFactor() const { return zoomFactor_; }

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void MostraPagina();
  void ShowLabel();
  void SavePdf();
  [[nodiscard]] std::string Title() const;

  const PrintPreview& report_;
  Single zoomFactor_ = 0.65;
  int page_ = 1;
  int pageMax_ = 0;
  int drawn_ = 0;  ///< counts the pages drawn, so that the view sees each wish for one
};

/// Opens a PrintPrev for every report and closes that of the report before.
class PreviewWindows : public PreviewWindow {
 public:
  PreviewWindows(PrintPreview& report, Platform platform) : report_(report), platform_(std::move(platform)) {
    report.window = this;
  }
  PreviewWindows(const PreviewWindows&) = delete;
  PreviewWindows& operator=(const PreviewWindows&) = delete;
  ~PreviewWindows() override { report_.window = nullptr; }

  void ClosePreview() override;
  void setPageMax(int pages) override;
  void ShowPreview(const std::string& caption) override;

 private:
  PrintPreview& report_;
  Platform platform_;
  std::weak_ptr<PrintPrev> shown_;
};

}  // namespace tav
