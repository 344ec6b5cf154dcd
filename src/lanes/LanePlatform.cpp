#include "lanes/LanePlatform.h"

namespace korvanta {

LanePlatform::LanePlatform(const Platform& direct, Workers& workers)
    : lanes_(workers),
      files_(direct.files, lanes_),
      internet_(direct.internet, lanes_, workers),
      sockets_(direct.sockets, lanes_),
      spooler_(direct.spooler, lanes_),
      services_{.files = files_,
                .codePage = direct.codePage,
                .registry = direct.registry,
                .spooler = spooler_,
                .waitableHandles = direct.waitableHandles,
                .mutexes = direct.mutexes,
                .internet = internet_,
                .sockets = sockets_,
                .shell = direct.shell,
                .system = direct.system,
                .clock = direct.clock,
                .messageBoxes = direct.messageBoxes,
                .messageLoop = direct.messageLoop,
                .screen = direct.screen,
                .textMeasure = direct.textMeasure} {}

}  // namespace korvanta
