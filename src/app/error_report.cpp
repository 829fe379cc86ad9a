#include "app/error_report.h"

#include <exception>
#include <system_error>

#include "model/text_id.h"

namespace tav {

RunTimeError CurrentError(const std::string& source, const TextSource& texts) {
  constexpr int kUnnumbered = 1;
  try {
    throw;
  } catch (const std::system_error& error) {
    return {error.code().value(), source, texts.Words(error)};
  } catch (const std::exception& error) {
    return {kUnnumbered, source, texts.Words(error)};
  } catch (...) {
    return {kUnnumbered, source, texts.GetResString(Text::ErrorUnknown)};
  }
}

void ReportRunTimeError(const RunTimeError& error, MessageBoxes& boxes, const TextSource& texts) {
  if (error.number == 0) return;
  // Where a number can have a sign, a blank stands in its place.
  const std::string number = (error.number >= 0 ? " " : "") + std::to_string(error.number);
  boxes.Show(texts.Filled(Text::ErrorReport, {number, error.source, error.description}),
             texts.GetResString(Text::ErrorTitle), BoxIcon::None, BoxButtons::OK);
}

}  // namespace tav
