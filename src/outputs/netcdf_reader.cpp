#include "outputs/netcdf_reader.h"

#include <netcdf.h>

#include <filesystem>
#include <system_error>

#include "outputs/cannot_read.h"
#include "outputs/netcdf_library.h"
#include "outputs/regular_file.h"

namespace Outputs {
namespace {

std::string lengths(const NetcdfReader::Sizes& shape) {
  std::string text;
  for (const std::size_t length : shape) {
    text += (text.empty() ? "" : " x ") + std::to_string(length);
  }
  return text;
}

}  // namespace

void NetcdfReader::require(int status) {
  const int error = errno;
  if (status != NC_NOERR) throw CannotRead{shown_ + ": " + netcdf_reason(status, error)};
}

NetcdfReader::NetcdfReader(const std::string& path, const std::string& shown) : shown_(shown) {
  require_regular_file(path, shown);
  std::error_code ignored;
  size_ = std::filesystem::file_size(path, ignored);
  require(netcdf_alone([&] { return nc_open(path.c_str(), NC_NOWRITE, &id_); }));
}

NetcdfReader::~NetcdfReader() {
  netcdf_alone([&] { return nc_close(id_); });
}

int NetcdfReader::find(const std::string& name) {
  int variable = 0;
  const int status = netcdf_alone([&] { return nc_inq_varid(id_, name.c_str(), &variable); });
  if (status == NC_ENOTVAR) throw CannotRead{shown_ + ": has no variable " + name};
  require(status);
  return variable;
}

NetcdfReader::Sizes NetcdfReader::shape(const std::string& name, std::size_t dimensions) {
  const int variable = find(name);
  int count = 0;
  require(netcdf_alone([&] { return nc_inq_varndims(id_, variable, &count); }));
  if (static_cast<std::size_t>(count) != dimensions) {
    throw CannotRead{shown_ + ": " + name + " has " + std::to_string(count) +
                     " dimensions instead of " + std::to_string(dimensions)};
  }
  std::vector<int> ids(dimensions);
  require(netcdf_alone([&] { return nc_inq_vardimid(id_, variable, ids.data()); }));
  Sizes found(dimensions);
  for (std::size_t i = 0; i < dimensions; ++i) {
    require(netcdf_alone([&] { return nc_inq_dimlen(id_, ids[i], &found[i]); }));
  }
  return found;
}

int NetcdfReader::variable(const std::string& name, const Sizes& wanted) {
  const Sizes found = shape(name, wanted.size());
  if (found != wanted) {
    throw CannotRead{shown_ + ": " + name + " has " + lengths(found) +
                     " values, but summary.json says " + lengths(wanted)};
  }
  // A file of a few bytes can have any lengths if its values were never written. Values take at
  // least two bytes, and compression makes at most 1032 bytes of one.
  double bytes = 2.0;
  for (const std::size_t length : found) bytes *= static_cast<double>(length);
  if (bytes > 1100.0 * static_cast<double>(size_)) {
    throw CannotRead{shown_ + ": " + name + " has " + lengths(found) + " values, more than " +
                     std::to_string(size_) + " bytes can hold"};
  }
  return find(name);
}

double NetcdfReader::attribute(int variable, const std::string& name) {
  std::size_t length = 0;
  const int status =
      netcdf_alone([&] { return nc_inq_attlen(id_, variable, name.c_str(), &length); });
  if (status != NC_ENOTATT) require(status);
  if (length != 1) throw CannotRead{shown_ + ": has no attribute " + name};
  double value = 0.0;
  require(netcdf_alone([&] { return nc_get_att_double(id_, variable, name.c_str(), &value); }));
  return value;
}

void NetcdfReader::keep_chunks(int variable, std::size_t bytes) {
  constexpr std::size_t slots = 1009;  // a prime, as the library advises
  constexpr float preemption = 0.75F;
  const int status =
      netcdf_alone([&] { return nc_set_var_chunk_cache(id_, variable, bytes, slots, preemption); });
  // Older formats have no chunks.
  if (status != NC_ENOTNC4) require(status);
}

void NetcdfReader::read(int variable, const Sizes& start, const Sizes& count, double* values) {
  require(netcdf_alone(
      [&] { return nc_get_vara_double(id_, variable, start.data(), count.data(), values); }));
}

void NetcdfReader::read(int variable, const Sizes& start, const Sizes& count,
                        std::int16_t* values) {
  require(netcdf_alone(
      [&] { return nc_get_vara_short(id_, variable, start.data(), count.data(), values); }));
}

}  // namespace Outputs
