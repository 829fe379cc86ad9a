#include "start/standard_streams.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

#include "model/text_id.h"
#include "persist/text_file.h"

namespace tav {

void FillStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(stream, F_GETFD) != -1) continue;
    // The lowest number that is free is taken: this one. Open for reading alone, standard output refuses what is
    // written.
    ::open("/dev/null", stream == STDERR_FILENO ? O_WRONLY : O_RDONLY);
  }
}

StandardOutput::Buffer::int_type StandardOutput::Buffer::overflow(int_type c) {
  sync();
  if (!traits_type::eq_int_type(c, traits_type::eof())) sputc(traits_type::to_char_type(c));
  return traits_type::not_eof(c);
}

int StandardOutput::Buffer::sync() {
  std::string_view rest(pbase(), static_cast<std::size_t>(pptr() - pbase()));
  Empty();
  while (!rest.empty()) {
    const ssize_t written = ::write(STDOUT_FILENO, rest.data(), rest.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) throw MessageError("", {Text::OutputNotWritten, {ErrorText(errno)}});
    rest.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

}  // namespace tav
