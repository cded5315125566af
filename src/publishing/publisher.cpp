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
    const bool awaits = phase_ == Phase::Asking || phase_ == Phase::Clearing;
    if (awaits && pump_.NowMs() >= dueMs_) phase_ = Phase::Ready;
    if (phase_ == Phase::Ready && Keep() && !idle_) Send();
    if (phase_ == Phase::Underway && underway_.empty()) EndBatch();
}

void Publisher::Act(const BrokerEvent& event) {
    switch (event.What) {
        case BrokerEvent::Kind::Deaf:
        case BrokerEvent::Kind::Connected:
            Ask();
            if (event.What == BrokerEvent::Kind::Deaf) phase_ = Phase::Ready;
            return;
        case BrokerEvent::Kind::Gone:
            return Lose(event.Text);
        case BrokerEvent::Kind::Taken:
            return Acknowledged(event.Id);
        case BrokerEvent::Kind::Message:
            return Hear(event);
    }
}

void Publisher::Ask() {
    mark_ = std::to_string(getpid()) + "/" + std::to_string(UtcMs(pump_.LocalTime())) + "/" +
            std::to_string(pump_.NowMs());
    phase_ = Phase::Asking;
    dueMs_ = pump_.NowMs() + kMarkMs;
    broker_.Publish(topics_.Mark, mark_);
    why_.clear();
    if (ConnectionChanged) ConnectionChanged(why_);
}

// What is known to be taken is kept before the next connection lets go of it. Told once for each reason: a
// broker that is away is tried every second.
void Publisher::Lose(const std::string& why) {
    Keep();
    broker_.Listen(true);
    phase_ = Phase::Away;
    underway_.clear();
    sent_ = taken_;
    idle_ = false;
    if (std::exchange(why_, why) != why && ConnectionChanged) ConnectionChanged(why);
}

// What the broker kept may come before both connections stand.
void Publisher::Hear(const BrokerEvent& message) {
    if (message.Topic == topics_.Mark && message.Text == mark_ && phase_ == Phase::Asking)
        phase_ = Phase::Ready;
    if (message.Topic != topics_.Readings) return;
    if (phase_ == Phase::Away || phase_ == Phase::Asking) HearOwn(message.Text);
    if (phase_ == Phase::Clearing && message.Text == mark_) phase_ = Phase::Ready;
}

// One of this file, and not of another that had the same name: its text is that of the reading here.
void Publisher::HearOwn(const std::string& text) {
    const Json object = Json::parse(text, nullptr, false);
    if (!object.is_object()) return;
    const auto run = object.find("run"), number = object.find("number");
    if (run == object.end() || number == object.end() || !run->is_number_integer() ||
        !number->is_number_integer())
        return;
    const Place place = {run->get<std::int64_t>(), number->get<std::int64_t>()};
    std::vector<StoredReading> own;
    if (place <= taken_ || !store_.Readings(place.Run, place.Number, 1, own).Ok() || own.empty()) return;
    if (PublishedText(own[0]) == text) taken_ = sent_ = place;
}

// The broker acknowledges in the order in which it was given, or not: only what has no gap before it counts.
void Publisher::Acknowledged(int id) {
    const auto found =
        std::find_if(underway_.begin(), underway_.end(), [&](const Message& one) { return one.Id == id; });
    if (found == underway_.end()) return;  // of the status or a mark
    found->Taken = true;
    for (; !underway_.empty() && underway_.front().Taken; underway_.pop_front())
        taken_ = underway_.front().Of;
}

void Publisher::Send() {
    std::vector<StoredReading> readings;
    if (!store_.ToSend(topics_.Readings, sent_.Run, sent_.Number, kBatch, readings).Ok()) return;
    idle_ = readings.empty();
    if (idle_) return;
    broker_.Listen(false);
    phase_ = Phase::Underway;
    for (const StoredReading& reading : readings) {
        mark_ = PublishedText(reading);
        const int id = broker_.Publish(topics_.Readings, mark_);
        if (id == 0) return;  // the connection is gone, which an event tells
        sent_ = {reading.Run, reading.Number};
        underway_.push_back({id, sent_, false});
    }
}

void Publisher::EndBatch() {
    if (!Keep()) return;
    phase_ = Phase::Clearing;
    dueMs_ = pump_.NowMs() + kMarkMs;
    broker_.Listen(true);
}

bool Publisher::Keep() {
    if (taken_ == kept_) return true;
    if (!store_.Sent(topics_.Readings, taken_.Run, taken_.Number).Ok()) return false;
    kept_ = taken_;
    return true;
}

void Publisher::End(double ms) {
    idle_ = false;
    pump_.WaitUntil(
        pump_.NowMs() + ms, [this] { return idle_ && phase_ == Phase::Ready; }, "the broker");
    ticker_.reset();
    Keep();
}

}  // namespace counter
