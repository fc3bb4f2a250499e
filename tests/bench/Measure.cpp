#include "bench/Measure.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>

using Clock = std::chrono::steady_clock;

Milliseconds Elapsed(const std::function<void()> &work) {
    const auto begin = Clock::now();
    work();
    return Clock::now() - begin;
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Comparison Compare(int rounds, const std::function<double()> &ours, const std::function<double()> &peer) {
    std::vector<double> ourTimes, peerTimes;
    for (int round = 0; round < rounds; ++round) {
        ourTimes.push_back(ours());
        peerTimes.push_back(peer());
    }
    return {Median(ourTimes), Median(peerTimes)};
}

CGapProbe::CGapProbe() {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Note(); });
    timer_.start(1);
}

double CGapProbe::Longest() {
    Note();
    return longest_.count();
}

void CGapProbe::Note() {
    const auto now = Clock::now();
    longest_ = std::max(longest_, Milliseconds(now - last_));
    last_ = now;
}

void Report(const std::string &name, const Comparison &result, const std::string &unit, const std::string &peer) {
    const auto rounded = [](double value) {
        char digits[32];
        std::snprintf(digits, sizeof digits, "%.3g", value);
        return std::string(digits).find('e') == std::string::npos ? std::atof(digits) : value;
    };
    const auto quoted = [](const std::string &text) {
        const QByteArray array =
            QJsonDocument(QJsonObject{{"", QString::fromStdString(text)}}).toJson(QJsonDocument::Compact);
        return array.mid(4, array.size() - 5).toStdString();  // without {"": and }
    };
    std::cout << "{\"name\":" << quoted(name) << ",\"value\":" << rounded(result.ours) << ",\"unit\":" << quoted(unit)
              << ",\"peer\":" << quoted(peer) << ",\"ratio\":" << rounded(result.ours / result.peer) << "}"
              << std::endl;
}

void Require(bool holds, const std::string &what) {
    if (holds) return;
    std::cerr << "bench: " << what << std::endl;
    std::_Exit(1);
}

void RunToEnd(const std::vector<std::string> &words, const std::string &directory) {
    std::vector<char *> arguments;
    for (const std::string &word : words) arguments.push_back(const_cast<char *>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    if (!directory.empty()) posix_spawn_file_actions_addchdir_np(&files, directory.c_str());
    pid_t child = -1;
    const int failure = posix_spawnp(&child, arguments[0], &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    int status = 1;
    Require(failure == 0 && waitpid(child, &status, 0) == child && status == 0, words[0] + " fails");
}

void TurnEventsUntil(const std::function<bool()> &done, std::chrono::seconds limit) {
    QTimer wake;  // for what becomes true without an event
    wake.start(5);
    const auto end = Clock::now() + limit;
    while (!done()) {
        Require(Clock::now() < end, "no end in sight");
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}
