#include "tests/conformance/FaultyProxy.h"

#include <httplib.h>

#include <stdexcept>
#include <utility>

namespace quobrak::conformance {

namespace {

constexpr const char* LOOPBACK = "127.0.0.1";
constexpr const char* JSON_TYPE = "application/json";

std::string errorBody(const std::string& code) {
  return R"({"value":{"error":")" + code + R"(","message":"said by the proxy","traceback":""},"sessionId":null})";
}

void truncate(httplib::Response& response) {
  const std::string body = response.body;
  response.body.clear();
  constexpr std::size_t MISSING = 1;
  response.set_content_provider(body.size() + MISSING, JSON_TYPE,
                                [body](std::size_t offset, std::size_t, httplib::DataSink& sink) {
                                  if (offset != 0) {
                                    return false;
                                  }
                                  sink.write(body.data(), body.size());
                                  return true;
                                });
}

}  // namespace

FaultyProxy::FaultyProxy(int phonePort)
    : phonePort_(phonePort),
      server_(std::make_unique<httplib::Server>()),
      plan_([](const std::string&) { return Fault::none; }) {
  const auto handler = [this](const httplib::Request& request, httplib::Response& response) {
    handle(request, response);
  };
  server_->set_tcp_nodelay(true);
  server_->Get(".*", handler);
  server_->Post(".*", handler);
  server_->Delete(".*", handler);
  port_ = server_->bind_to_any_port(LOOPBACK);
  if (port_ < 0) {
    throw std::runtime_error("no port of the loopback interface is free");
  }
  thread_ = std::thread([this] { server_->listen_after_bind(); });
  // A stop before that would be overlooked.
  while (!server_->is_running()) {
    std::this_thread::yield();
  }
}

FaultyProxy::~FaultyProxy() {
  kill();
}

void FaultyProxy::setPlan(Plan plan) {
  const std::lock_guard lock(mutex_);
  plan_ = std::move(plan);
}

void FaultyProxy::kill() {
  if (!thread_.joinable()) {
    return;
  }
  {
    const std::lock_guard lock(mutex_);
    isReleased_ = true;
  }
  released_.notify_all();
  server_->stop();
  thread_.join();
}

void FaultyProxy::handle(const httplib::Request& request, httplib::Response& response) {
  std::unique_lock lock(mutex_);
  switch (plan_(request.method + " " + request.path)) {
    case Fault::none:
      handOn(request, response);
      break;
    case Fault::hang:
      released_.wait(lock, [this] { return isReleased_; });
      break;
    case Fault::truncatedReply:
      handOn(request, response);
      truncate(response);
      break;
    case Fault::nonsense:
      response.set_content("<html><body>Bad gateway</body></html>", "text/html");
      break;
    case Fault::sessionLost:
      response.status = 404;
      response.set_content(errorBody("invalid session id"), JSON_TYPE);
      break;
    case Fault::staleElement:
      response.status = 404;
      response.set_content(errorBody("stale element reference"), JSON_TYPE);
      break;
  }
}

void FaultyProxy::handOn(const httplib::Request& request, httplib::Response& response) {
  httplib::Client phone(LOOPBACK, phonePort_);
  phone.set_tcp_nodelay(true);
  httplib::Request forwarded;
  forwarded.method = request.method;
  forwarded.path = request.target;
  forwarded.body = request.body;
  if (!request.body.empty()) {
    forwarded.set_header("Content-Type", JSON_TYPE);
  }
  const httplib::Result reply = phone.send(forwarded);
  if (!reply) {
    throw std::runtime_error("the served phone did not answer the proxy: " + httplib::to_string(reply.error()));
  }
  response.status = reply->status;
  response.set_content(reply->body, JSON_TYPE);
}

}  // namespace quobrak::conformance
