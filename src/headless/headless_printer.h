#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "headless/recording_surface.h"
#include "platform/printer.h"

namespace tav {

/// A printer without paper: what was sent is kept as recorded sheets.
class HeadlessPrinter : public Printer {
 public:
  struct Sent {
    std::string title;
    std::filesystem::path file;  ///< of a PDF; empty for paper
    std::vector<std::shared_ptr<RecordingSurface>> sheets;
    bool ended = false;
  };

  std::vector<std::shared_ptr<Sent>> jobs;
  std::vector<InstalledPrinter> printers{{"Office", true}};
  std::vector<PrintOrder> orders;  ///< of jobs on paper
  std::string fails;               ///< why a job can't be ended; empty when it can
  int setUps = 0;

  [[nodiscard]] std::vector<InstalledPrinter> Installed() override { return printers; }
  void SetUp(const std::string& /*printer*/) override { ++setUps; }
  std::unique_ptr<PrintJob> Start(const PrintOrder& order, const PageSize& first) override {
    orders.push_back(order);
    return Begin(order.title, {}, first);
  }
  std::unique_ptr<PrintJob> StartPdf(const std::filesystem::path& file, const std::string& title,
                                     const PageSize& first) override {
    return Begin(title, file, first);
  }

 private:
  class Job : public PrintJob {
   public:
    Job(std::shared_ptr<Sent> sent, std::string fails, const PageSize& first)
        : sent_(std::move(sent)), fails_(std::move(fails)) {
      Job::NewSheet(first);
    }
    [[nodiscard]] DrawingSurface& Sheet() override { return *sent_->sheets.back(); }
    void NewSheet(const PageSize& page) override {
      sent_->sheets.push_back(std::make_shared<RecordingSurface>(page.width, page.height));
    }
    void EndDoc() override {
      if (!fails_.empty()) throw std::runtime_error(fails_);
      sent_->ended = true;
    }

   private:
    std::shared_ptr<Sent> sent_;
    std::string fails_;
  };

  std::unique_ptr<PrintJob> Begin(const std::string& title, const std::filesystem::path& file, const PageSize& first) {
    jobs.push_back(std::make_shared<Sent>(Sent{title, file, {}, false}));
    return std::make_unique<Job>(jobs.back(), fails, first);
  }
};

}  // namespace tav
