// Details of frames in the application's hands.
#include "pv/aravis/StreamDetails.h"

#include "pv/aravis/PipelineBuffers.h"
#include "pv/aravis/PvLayer.h"

namespace keocam {

FrameDetails detailsOf(const PvBuffer& buffer) {
  ArvBuffer* const frame = PipelineBuffers::descriptionOf(buffer);
  FrameDetails details;
  details.block_id = arv_buffer_get_frame_id(frame);
  details.device_timestamp_ns = arv_buffer_get_timestamp(frame);
  details.host_timestamp_ns = arv_buffer_get_system_timestamp(frame);
  details.pixel_format = static_cast<uint32_t>(arv_buffer_get_image_pixel_format(frame));
  details.width = static_cast<uint32_t>(arv_buffer_get_image_width(frame));
  details.height = static_cast<uint32_t>(arv_buffer_get_image_height(frame));
  std::size_t size = 0;
  arv_buffer_get_data(frame, &size);
  details.size = static_cast<uint32_t>(size);
  return details;
}

}  // namespace keocam
