#pragma once

#include "detection/IJobDetectionEventSink.h"

namespace korvanta {

// Finds print jobs on the monitored printers, reports each of them once, and cancels them.
//
// All operations are re-entrant, since they let messages run: a clock tick inside another operation is ignored, and a
// rebuild (PrinterListChanged, FullRefresh) is deferred until the running operation ends. The caller keeps the detector
// alive until the call returns, also when messages that run meanwhile replace it by another one.
class IJobDetectionObject {
  public:
    virtual ~IJobDetectionObject() = default;

    // One tick of the owner's monitoring timer; the detector does its periodic work here.
    void MonitorClockTick() { IJobDetectionObject_MonitorClockTick(); }
    // Whether everything that the detector depends on can be reached.
    bool TestServerHealth() { return IJobDetectionObject_TestServerHealth(); }
    // Finds the printers and remembers the jobs that are there already, without reporting them. To be called once,
    // before any other operation; the sink outlives the detector.
    void Start(IJobDetectionEventSink& objEventSink) { IJobDetectionObject_Start(objEventSink); }
    // The list of monitored printers has changed: looks the printers up anew.
    void PrinterListChanged() { IJobDetectionObject_PrinterListChanged(); }
    // Looks the printers up anew and checks for jobs.
    void FullRefresh() { IJobDetectionObject_FullRefresh(); }
    // Takes the job out of its print queue; true when the spooler did. The job may come from an earlier detector.
    bool CancelJob(const clsJobInfo& objJobInfo) { return IJobDetectionObject_CancelJob(objJobInfo); }

  private:
    virtual void IJobDetectionObject_MonitorClockTick() = 0;
    virtual bool IJobDetectionObject_TestServerHealth() = 0;
    virtual void IJobDetectionObject_Start(IJobDetectionEventSink& objEventSink) = 0;
    virtual void IJobDetectionObject_PrinterListChanged() = 0;
    virtual void IJobDetectionObject_FullRefresh() = 0;
    virtual bool IJobDetectionObject_CancelJob(const clsJobInfo& objJobInfo) = 0;
};

}  // namespace korvanta
