#include "platform/qt/pictures/decoder_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <vector>

namespace Morvane {

namespace {

using Clock = std::chrono::steady_clock;

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int Number() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }
  void Close() {
    if (IsOpen()) close(number_);
    number_ = -1;
  }

 private:
  int number_;
};

class Child {
 public:
  explicit Child(pid_t pid) : pid_(pid) {}
  ~Child() {
    if (pid_ <= 0) return;
    kill(pid_, SIGKILL);
    int status = 0;
    while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) {
    }
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  bool Started() const { return pid_ > 0; }

  // True when it ended by itself with 0 before the deadline.
  bool EndsWellBefore(Clock::time_point deadline) {
    int status = 0;
    pid_t ended = 0;
    while ((ended = waitpid(pid_, &status, WNOHANG)) == 0 && Clock::now() < deadline) poll(nullptr, 0, 1);
    if (ended != pid_) return false;
    pid_ = -1;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

 private:
  pid_t pid_;
};

pid_t Spawn(const std::string& program, const std::string& argument, int input, int output) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

  std::string name = program;
  std::string first = argument;
  std::array<char*, 3> arguments{name.data(), first.data(), nullptr};
  pid_t pid = -1;
  if (posix_spawn(&pid, program.c_str(), &actions, nullptr, arguments.data(), environ) != 0) pid = -1;
  posix_spawn_file_actions_destroy(&actions);
  return pid;
}

// Sends and receives in turn as the process is ready for either, so that neither side waits for the other.
class Exchange {
 public:
  Exchange(Descriptor& input, Descriptor& output, const std::string& text, const DecoderLimits& limits)
      : input_(input), output_(output), text_(text), limits_(limits) {}

  std::optional<std::string> Run(Clock::time_point deadline) {
    while (!ended_) {
      const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
      if (left.count() <= 0) return std::nullopt;
      std::array<pollfd, 2> ready{{{output_.Number(), POLLIN, 0}, {input_.Number(), POLLOUT, 0}}};
      const int count = poll(ready.data(), ready.size(), static_cast<int>(left.count()));
      if (count < 0 && errno != EINTR) return std::nullopt;
      if (count <= 0) continue;
      if (ready[1].revents != 0) Send();
      if (ready[0].revents != 0 && !Receive()) return std::nullopt;
    }
    return std::move(received_);
  }

 private:
  // A process that reads no more isn't a failure yet: what it wrote and how it ends tell.
  void Send() {
    const ssize_t count =
        send(input_.Number(), text_.data() + sent_, text_.size() - sent_, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (count > 0) sent_ += static_cast<size_t>(count);
    if (count < 0 || sent_ == text_.size()) input_.Close();
  }

  bool Receive() {
    const ssize_t count = read(output_.Number(), buffer_.data(), buffer_.size());
    if (count < 0) return errno == EINTR;
    ended_ = count == 0;
    received_.append(buffer_.data(), static_cast<size_t>(count));
    return received_.size() <= limits_.outputBytes;
  }

  Descriptor& input_;
  Descriptor& output_;
  const std::string& text_;
  const DecoderLimits& limits_;
  size_t sent_ = 0;
  bool ended_ = false;
  std::string received_;
  std::vector<char> buffer_ = std::vector<char>(256 * 1024);
};

}  // namespace

std::optional<std::string> RunDecoder(const std::string& program, const std::string& argument,
                                      const std::string& input, const DecoderLimits& limits) {
  const auto deadline = Clock::now() + limits.wallTime;
  // A socket instead of a pipe, so that writing to a process that is gone raises no signal.
  std::array<int, 2> in{-1, -1};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, in.data()) != 0) return std::nullopt;
  Descriptor inOurs(in[0]);
  Descriptor inTheirs(in[1]);
  std::array<int, 2> out{-1, -1};
  if (pipe2(out.data(), O_CLOEXEC) != 0) return std::nullopt;
  Descriptor outOurs(out[0]);
  Descriptor outTheirs(out[1]);

  Child child(Spawn(program, argument, inTheirs.Number(), outTheirs.Number()));
  if (!child.Started()) return std::nullopt;
  inTheirs.Close();
  outTheirs.Close();

  std::optional<std::string> output = Exchange(inOurs, outOurs, input, limits).Run(deadline);
  if (!output || !child.EndsWellBefore(deadline)) return std::nullopt;
  return output;
}

}  // namespace Morvane
