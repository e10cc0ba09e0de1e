#include "drivers/webdriver/CurlTransport.h"

#include <curl/curl.h>

#include <new>
#include <utility>

#include "drivers/webdriver/CommandError.h"

namespace quobrak::webdriver {

namespace {

/// What became of a request so far.
struct Progress {
  /// From then on the server may have carried it out.
  bool isSent;
  std::string body;
  std::size_t largest;
};

/// Called between the connection and the request. Where a kept connection breaks, the library would send the request
/// again over a new one by itself, and what it asks for might be done twice.
int sendOnce(void* destination, char*, char*, int, int) {
  auto& progress = *static_cast<Progress*>(destination);
  if (progress.isSent) {
    return CURL_PREREQFUNC_ABORT;
  }
  progress.isSent = true;
  return CURL_PREREQFUNC_OK;
}

std::size_t receive(char* bytes, std::size_t, std::size_t count, void* destination) {
  auto& received = *static_cast<Progress*>(destination);
  if (received.body.size() + count > received.largest) {
    return 0;
  }
  received.body.append(bytes, count);
  return count;
}

CommandError failureOf(CURLcode result, const Progress& progress) {
  if (!progress.isSent) {
    return {Fault::notSent, std::string("the server cannot be reached: ") + ::curl_easy_strerror(result)};
  }
  switch (result) {
    case CURLE_WRITE_ERROR:
      return {Fault::outcomeUnknown,
              "no answer came: the answer is larger than " + std::to_string(progress.largest) + " bytes"};
    // Behind a connection that broke, and in front of another one.
    case CURLE_ABORTED_BY_CALLBACK:
    case CURLE_COULDNT_CONNECT:
      return {Fault::outcomeUnknown, "no answer came: the server closed the connection"};
    default:
      return {Fault::outcomeUnknown, std::string("no answer came: ") + ::curl_easy_strerror(result)};
  }
}

void initializeOnce() {
  static const CURLcode RESULT = ::curl_global_init(CURL_GLOBAL_DEFAULT);
  if (RESULT != CURLE_OK) {
    throw CommandError(Fault::notSent, std::string("the HTTP library does not start: ") + curl_easy_strerror(RESULT));
  }
}

struct HandleDeleter {
  void operator()(CURL* handle) const { ::curl_easy_cleanup(handle); }
};

struct HeadersDeleter {
  void operator()(curl_slist* headers) const { ::curl_slist_free_all(headers); }
};

using Headers = std::unique_ptr<curl_slist, HeadersDeleter>;

Headers jsonHeaders() {
  Headers headers(::curl_slist_append(nullptr, "Content-Type: application/json; charset=utf-8"));
  Headers::pointer grown = ::curl_slist_append(headers.get(), "Accept: application/json");
  if (grown == nullptr) {
    throw std::bad_alloc();
  }
  // Small as bodies are, waiting for leave to send them would double the exchanges.
  ::curl_slist_append(grown, "Expect:");
  return headers;
}

}  // namespace

struct CurlTransport::Connection {
  std::unique_ptr<CURL, HandleDeleter> handle;
  Headers headers;
  Progress progress;
};

CurlTransport::CurlTransport(std::string url, std::chrono::milliseconds connectTimeLimit, std::size_t largestReply)
    : url_(std::move(url)) {
  initializeOnce();
  connection_ = std::make_unique<Connection>(Connection{
      .handle = std::unique_ptr<CURL, HandleDeleter>(::curl_easy_init()),
      .headers = jsonHeaders(),
      .progress = {.isSent = false, .body = "", .largest = largestReply},
  });
  CURL* const handle = connection_->handle.get();
  if (handle == nullptr) {
    throw std::bad_alloc();
  }
  constexpr long ON = 1;
  ::curl_easy_setopt(handle, CURLOPT_NOSIGNAL, ON);
  ::curl_easy_setopt(handle, CURLOPT_TCP_KEEPALIVE, ON);
  ::curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
  ::curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(connectTimeLimit.count()));
  ::curl_easy_setopt(handle, CURLOPT_HTTPHEADER, connection_->headers.get());
  ::curl_easy_setopt(handle, CURLOPT_PREREQFUNCTION, &sendOnce);
  ::curl_easy_setopt(handle, CURLOPT_PREREQDATA, &connection_->progress);
  ::curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &receive);
  ::curl_easy_setopt(handle, CURLOPT_WRITEDATA, &connection_->progress);
}

CurlTransport::~CurlTransport() = default;

HttpReply CurlTransport::exchange(const HttpRequest& request) {
  CURL* const handle = connection_->handle.get();
  Progress& progress = connection_->progress;
  progress.isSent = false;
  progress.body.clear();
  ::curl_easy_setopt(handle, CURLOPT_URL, (url_ + request.path).c_str());
  ::curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, static_cast<long>(request.timeLimit.count()));
  constexpr long ON = 1;
  if (request.method == "POST") {
    ::curl_easy_setopt(handle, CURLOPT_CUSTOMREQUEST, nullptr);
    ::curl_easy_setopt(handle, CURLOPT_POSTFIELDS, request.body.c_str());
    ::curl_easy_setopt(handle, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.body.size()));
    ::curl_easy_setopt(handle, CURLOPT_POST, ON);
  } else {
    ::curl_easy_setopt(handle, CURLOPT_HTTPGET, ON);
    ::curl_easy_setopt(handle, CURLOPT_CUSTOMREQUEST, request.method.c_str());
  }

  const CURLcode result = ::curl_easy_perform(handle);
  if (result != CURLE_OK) {
    throw failureOf(result, progress);
  }
  long status = 0;
  ::curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
  return {.status = status, .body = std::move(progress.body)};
}

}  // namespace quobrak::webdriver
