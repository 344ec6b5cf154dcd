#pragma once

#include "detection/IJobDetectionEventSink.h"

namespace korvanta {

// Finds print jobs on the monitored printers and reports each of them once.
//
// Operations let messages run, and messages may call any operation again before the first one has ended: such a clock
// tick does no second search, and such a rebuild runs as soon as the operation under way has ended. Whoever calls keeps
// the detector alive until the call returns, also when those messages choose another detector.
class IJobDetectionObject {
  public:
    virtual ~IJobDetectionObject() = default;

    // One tick of the owner's monitoring timer; the detector does its periodic work here.
    void MonitorClockTick() { IJobDetectionObject_MonitorClockTick(); }
    // Whether everything that the detector depends on can be reached.
    bool TestServerHealth() { return IJobDetectionObject_TestServerHealth(); }
    // Finds the printers and takes note of what is there already, without reporting it. Comes first, once; the sink
    // outlives the detector.
    void Start(IJobDetectionEventSink& objEventSink) { IJobDetectionObject_Start(objEventSink); }
    // The list of monitored printers has changed: looks the printers up anew.
    void PrinterListChanged() { IJobDetectionObject_PrinterListChanged(); }
    // Looks the printers up anew and checks for jobs.
    void FullRefresh() { IJobDetectionObject_FullRefresh(); }

  private:
    virtual void IJobDetectionObject_MonitorClockTick() = 0;
    virtual bool IJobDetectionObject_TestServerHealth() = 0;
    virtual void IJobDetectionObject_Start(IJobDetectionEventSink& objEventSink) = 0;
    virtual void IJobDetectionObject_PrinterListChanged() = 0;
    virtual void IJobDetectionObject_FullRefresh() = 0;
};

}  // namespace korvanta
