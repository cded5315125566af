#include "publishing/publisher.h"

#include <unistd.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "meter/leading_number.h"
#include "meter/text.h"
#include "platform/utc_time.h"

namespace counter {

namespace {

using Json = nlohmann::ordered_json;

constexpr double kLookMs = 100;

}  // namespace

std::string PublishedText(const StoredReading& reading) {
    Json items = Json::array(), alarms = Json::array();
    std::string text;
    bool any = false;
    for (const ReadingItem& item : reading.Items) {
        items.push_back(item.Number.empty() ? Json() : Json(LeadingNumber(item.Number)));
        alarms.push_back(item.Alarms);
        any = any || !item.Alarms.empty();
        text += item.Sent;
    }
    Json object = {{"run", reading.Run},
                   {"number", reading.Number},
                   {"time", IsoTime(WallTimeAt(reading.TimeMs, 0))},
                   {"reading", Utf8(text)},
                   {"items", std::move(items)}};
    if (any) object["alarms"] = std::move(alarms);
    return object.dump();
}

Publisher::Publisher(Pump& pump, ReadingStore& store, Broker& broker, Topics topics)
    : pump_(pump), store_(store), broker_(broker), topics_(std::move(topics)) {}

void Publisher::Begin() {
    store_.LastSent(topics_.Readings, taken_.Run, taken_.Number);
    sent_ = kept_ = taken_;
    ticker_ = pump_.Every(kLookMs, [this] { Look(); });
}

void Publisher::Look() {
    for (const BrokerEvent& event : broker_.Events()) Act(event);
    if (phase_ == Phase::Asking && pump_.NowMs() >= markDueMs_) phase_ = Phase::Sending;
    if (phase_ == Phase::Sending && !idle_) Send();
    if (taken_ > kept_ && pump_.NowMs() >= keepDueMs_) Keep();
}

void Publisher::Act(const BrokerEvent& event) {
    switch (event.What) {
        case BrokerEvent::Kind::Connected:
            return Ask();
        case BrokerEvent::Kind::Gone:
            return Lose(event.Text);
        case BrokerEvent::Kind::Taken:
            return Acknowledged(event.Id);
        case BrokerEvent::Kind::Message:
            return Hear(event);
        case BrokerEvent::Kind::Refused:
            markDueMs_ = 0;
            return;  // nothing will come back
        case BrokerEvent::Kind::Subscribed:
            return;
    }
}

void Publisher::Ask() {
    mark_ = std::to_string(getpid()) + "/" + std::to_string(UtcMs(pump_.LocalTime())) + "/" +
            std::to_string(pump_.NowMs());
    phase_ = Phase::Asking;
    markDueMs_ = pump_.NowMs() + kMarkMs;
    broker_.Subscribe(topics_.Readings);
    broker_.Subscribe(topics_.Mark);
    broker_.Publish(topics_.Mark, mark_);
    why_.clear();
    if (ConnectionChanged) ConnectionChanged(why_);
}

// Told once for each reason: a broker that is away is tried every second.
void Publisher::Lose(const std::string& why) {
    phase_ = Phase::Away;
    underway_.clear();
    sent_ = taken_;
    idle_ = false;
    if (std::exchange(why_, why) != why && ConnectionChanged) ConnectionChanged(why);
}

void Publisher::Hear(const BrokerEvent& message) {
    if (phase_ != Phase::Asking) return;
    if (message.Topic == topics_.Readings) HearOwn(message.Text);
    if (message.Topic == topics_.Mark && message.Text == mark_) phase_ = Phase::Sending;
}

// One of this file, and not of another that had the same name: its time is that of the reading here.
void Publisher::HearOwn(const std::string& text) {
    const Json object = Json::parse(text, nullptr, false);
    if (!object.is_object() || !object.contains("run") || !object["run"].is_number_integer() ||
        !object.contains("number") || !object["number"].is_number_integer())
        return;
    const Place place = {object["run"].get<std::int64_t>(), object["number"].get<std::int64_t>()};
    std::vector<StoredReading> own;
    if (place <= taken_ || !store_.Readings(place.Run, place.Number, 1, own).Ok() || own.empty()) return;
    if (PublishedText(own[0]) == text) taken_ = sent_ = place;
}

// The broker acknowledges in the order in which it was given, or not: only what has no gap before it counts.
void Publisher::Acknowledged(int id) {
    const auto found =
        std::find_if(underway_.begin(), underway_.end(), [&](const Underway& one) { return one.Id == id; });
    if (found == underway_.end()) return;  // of the status or a mark
    found->Taken = true;
    for (; !underway_.empty() && underway_.front().Taken; underway_.pop_front())
        taken_ = underway_.front().Of;
}

void Publisher::Send() {
    if (underway_.size() >= kUnderway) return;
    std::vector<StoredReading> readings;
    const int most = static_cast<int>(kUnderway - underway_.size());
    if (!store_.ToSend(topics_.Readings, sent_.Run, sent_.Number, most, readings).Ok()) return;
    idle_ = readings.empty();
    for (const StoredReading& reading : readings) {
        const int id = broker_.Publish(topics_.Readings, PublishedText(reading));
        if (id == 0) return;  // the connection is gone, which an event tells
        sent_ = {reading.Run, reading.Number};
        underway_.push_back({id, sent_, false});
    }
}

void Publisher::Keep() {
    keepDueMs_ = pump_.NowMs() + kKeepMs;
    if (store_.Sent(topics_.Readings, taken_.Run, taken_.Number).Ok()) kept_ = taken_;
}

void Publisher::End(double ms) {
    idle_ = false;
    pump_.WaitUntil(
        pump_.NowMs() + ms, [this] { return idle_ && underway_.empty(); }, "the broker");
    ticker_.reset();
    if (taken_ > kept_) Keep();
}

}  // namespace counter
