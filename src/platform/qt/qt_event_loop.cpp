#include "platform/qt/qt_event_loop.h"

#include <QCoreApplication>
#include <QDate>
#include <QtGlobal>
#include <algorithm>

namespace korva {

QtEventLoop::QtEventLoop() : start_(std::chrono::steady_clock::now()) {
  QCoreApplication::instance()->installEventFilter(this);
}

QtEventLoop::~QtEventLoop() = default;

void QtEventLoop::ChooseDispatcher() { qputenv("QT_NO_GLIB", "1"); }

Date QtEventLoop::Today() const {
  const QDate today = QDate::currentDate();
  return std::chrono::year(today.year()) / today.month() / today.day();
}

TimerId QtEventLoop::StartTimer(Milliseconds interval, std::function<void()> tick) {
  const TimerId id = ++last_timer_;
  auto timer = std::make_shared<Timer>();
  timer->interval = std::max(interval, Milliseconds(1));
  timer->tick = std::move(tick);
  timer->due = Now() + timer->interval;
  queue_.emplace(Due(timer->due, id), id);
  timers_.emplace(id, std::move(timer));
  Arm();
  return id;
}

void QtEventLoop::StopTimer(TimerId timer) {
  const auto found = timers_.find(timer);
  if (found != timers_.end()) {
    queue_.erase(Due(found->second->due, timer));  // not there while the timer ticks
    timers_.erase(found);
  }
}

// Leaves an alarm for an earlier time as it is: that costs one waking at the most, while re-arming would cost
// something at each exchange.
void QtEventLoop::Arm() {
  if (queue_.empty() || (alarm_.isActive() && alarm_time_ <= queue_.begin()->first.first)) {
    return;
  }
  alarm_time_ = queue_.begin()->first.first;
  const auto wait = std::chrono::ceil<Milliseconds>(std::max(alarm_time_ - Now(), Clock(0)));
  alarm_.start(static_cast<int>(wait.count()), Qt::PreciseTimer, this);
}

void QtEventLoop::timerEvent(QTimerEvent* /*event*/) {
  // Qt does not let a timer fire inside its own event; the waits inside a tick need a new one.
  alarm_.stop();
  const Clock now = Now();
  while (!queue_.empty() && queue_.begin()->first.first <= now) {
    const TimerId id = queue_.begin()->second;
    queue_.erase(queue_.begin());
    Arm();
    Tick(id);
  }
  Arm();
}

void QtEventLoop::Tick(TimerId id) {
  const std::shared_ptr<Timer> timer = timers_.at(id);  // a tick may stop its own timer
  Gate().Enter(timer->tick);
  if (timers_.contains(id)) {
    const Clock interval = timer->interval;
    timer->due += interval * ((Now() - timer->due) / interval + 1);
    queue_.emplace(Due(timer->due, id), id);
  }
}

void QtEventLoop::Pump() {
  Gate().RaiseIfEnded();
  // A posted event is a due one, but Qt would deliver it and then sleep all the same.
  const std::uint64_t before = events_;
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents(events_ == before ? QEventLoop::WaitForMoreEvents : QEventLoop::AllEvents);
  Gate().RaiseIfEnded();
}

bool QtEventLoop::eventFilter(QObject* /*watched*/, QEvent* /*event*/) {
  ++events_;
  return false;
}

int QtEventLoop::Run() { return status_ ? *status_ : QCoreApplication::exec(); }

void QtEventLoop::Exit(int status) {
  if (!status_) {
    status_ = status;
    QCoreApplication::exit(status);
  }
}

}  // namespace korva
