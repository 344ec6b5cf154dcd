#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/Text.h"
#include "detection/IJobDetectionEventSink.h"
#include "detection/clsJobInfo.h"
#include "detection/clsPrintersMonitored.h"
#include "fakes/FakeMessageTexts.h"
#include "fakes/FakePlatform.h"
#include "fakes/FakeSystemInformation.h"
#include "fakes/FakeTraceLog.h"
#include "server/clsClientSettings.h"
#include "server/clsServerInterfaces.h"

namespace korvanta::tests {

using Texts = std::vector<std::u16string>;

// Keeps what is reported. The hooks stand for messages that run during a report; they may call the detector.
class RecordingSink : public IJobDetectionEventSink {
  public:
    std::vector<std::pair<std::u16string, bool>> printers;
    std::vector<std::shared_ptr<clsJobInfo>> jobs;
    Texts activities;
    std::function<void()> onPrinter;
    std::function<void()> onJob;
    std::function<void()> onActivity;

    Texts Documents() const {
        Texts documents;
        for (const auto& job : jobs) {
            documents.push_back(job->Document);
        }
        return documents;
    }

  private:
    void IJobDetectionEventSink_FoundPrinter(const std::u16string& fullPrinterName, bool blnMonitor) override {
        printers.emplace_back(fullPrinterName, blnMonitor);
        Call(onPrinter);
    }
    void IJobDetectionEventSink_FoundNewJob(const std::shared_ptr<clsJobInfo>& objJobInfo) override {
        jobs.push_back(objJobInfo);
        Call(onJob);
    }
    void IJobDetectionEventSink_Activity(const std::u16string& strActivity) override {
        activities.push_back(strActivity);
        Call(onActivity);
    }
    static void Call(std::function<void()> hook) {  // a copy, since a hook may replace itself
        if (hook) {
            hook();
        }
    }
};

// Runs an action the first time only, whatever runs inside it.
inline std::function<void()> Once(std::function<void()> action) {
    return [action = std::move(action), done = std::make_shared<bool>(false)] {
        if (!*done) {
            *done = true;
            action();
        }
    };
}

inline Texts TextsOf(const List& list) {
    Texts texts;
    for (const Variant& item : list.Items()) {
        texts.push_back(item.Text());
    }
    return texts;
}

// A primary server "srv" that publishes its lists on file shares.
struct Organisation {
    fakes::FakePlatform platform;
    fakes::FakeTraceLog log;
    fakes::FakeSystemInformation systemInformation;
    clsClientSettings settings;
    fakes::FakeMessageTexts messages;
    clsServerInterfaces serverInterfaces{
        platform.files, platform.internet, platform.messageLoop, platform.messageBoxes, messages, log, u"jsmith"};
    clsPrintersMonitored printersMonitored{serverInterfaces, platform.mutexes, log, u"srv"};

    Organisation() { AddServer(u"srv"); }

    static std::u16string Share(const std::u16string& server) { return u"\\\\" + server + u"\\TLXData$"; }
    void AddServer(const std::u16string& server) { platform.files.AddFolder(Share(server) + u"\\jobs"); }
    void PublishServers(const Texts& servers) {
        platform.files.WriteUtf16(Share(u"srv") + u"\\Servers.txt", Join(servers, u"\r\n"));
    }
    void PublishPrinters(const std::u16string& server, const Texts& printers) {
        platform.files.WriteUtf16(Share(server) + u"\\Printers.txt", Join(printers, u"\r\n"));
    }
    void SetCounter(const std::u16string& server, const std::u16string& text) {
        platform.files.WriteUtf16(Share(server) + u"\\jobs\\jsmith.tlu", text);
    }
    static std::u16string JobFilePath(const std::u16string& server, int number) {
        return Share(server) + u"\\jobs\\jsmith." + PaddedNumberText(number, 3);
    }
    static std::u16string JobText(const std::u16string& printer, const std::u16string& document) {
        return Join({u"17", u"laser", u"WS01", u"jsmith", document, printer, u"0", u"1", u"2", u"3"}, u"\r\n");
    }
    void WriteJob(const std::u16string& server, int number, const std::u16string& document) {
        platform.files.WriteUtf16(JobFilePath(server, number), JobText(u"\\\\" + server + u"\\laser", document));
    }
};

}  // namespace korvanta::tests
