#include "apps/keocam/core/CoreCommand.h"

#include "apps/keocam/CameraChoice.h"
#include "apps/keocam/CommandFailure.h"
#include "apps/keocam/core/StatusText.h"
#include "serial/CheckedExchange.h"

namespace keocam::cli {

void command(CoreSession& session, FunctionCodes code, const std::string& subject) {
  const ResponseStatuses status = checkedWrite(session.core(), code, nullptr, {});
  if (status == CAM_OK) return;
  session.requireLink();
  throw CommandFailure(exitStatusOf(status), subject + " of the core of " + nameOf(session.camera()) +
                                                 " failed: " + wordsFor(status) + ". " + adviceOn(status));
}

}  // namespace keocam::cli
