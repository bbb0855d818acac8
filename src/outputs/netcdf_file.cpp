#include "outputs/netcdf_file.h"

#include <netcdf.h>

#include <array>
#include <cerrno>

#include "outputs/netcdf_library.h"
#include "outputs/output_file.h"

namespace Outputs {
namespace {

nc_type type_of(NetcdfType type) {
  if (type == NetcdfType::text) return NC_STRING;
  if (type == NetcdfType::int16) return NC_SHORT;
  return type == NetcdfType::int32 ? NC_INT : NC_DOUBLE;
}

}  // namespace

void NetcdfFile::require(int status) {
  const int error = errno;
  if (status == NC_NOERR) return;
  id_ = -1;
  throw CannotWrite{shown_ + ": " + netcdf_reason(status, error)};
}

NetcdfFile::NetcdfFile(OutputFolder& folder, const std::string& name)
    : path_(folder.path_of(name)), shown_(folder.shown(name)) {
  require(netcdf_alone([&] { return nc_create(path_.c_str(), NC_NETCDF4 | NC_CLOBBER, &id_); }));
  // Every value is written, so there is nothing to fill in before.
  int before = 0;
  require(netcdf_alone([&] { return nc_set_fill(id_, NC_NOFILL, &before); }));
}

NetcdfFile::~NetcdfFile() {
  if (id_ != -1) netcdf_alone([&] { return nc_close(id_); });
}

int NetcdfFile::dimension(const std::string& name, std::size_t length) {
  int dimension = 0;
  require(netcdf_alone([&] { return nc_def_dim(id_, name.c_str(), length, &dimension); }));
  return dimension;
}

int NetcdfFile::variable(const std::string& name, NetcdfType type,
                         const std::vector<int>& dimensions) {
  int variable = 0;
  require(netcdf_alone([&] {
    return nc_def_var(id_, name.c_str(), type_of(type), static_cast<int>(dimensions.size()),
                      dimensions.data(), &variable);
  }));
  return variable;
}

void NetcdfFile::attribute(int variable, const std::string& name, const std::string& text) {
  require(netcdf_alone(
      [&] { return nc_put_att_text(id_, variable, name.c_str(), text.size(), text.data()); }));
}

void NetcdfFile::attribute(int variable, const std::string& name, double value) {
  require(netcdf_alone(
      [&] { return nc_put_att_double(id_, variable, name.c_str(), NC_DOUBLE, 1, &value); }));
}

void NetcdfFile::attribute(int variable, const std::string& name, float value) {
  require(netcdf_alone(
      [&] { return nc_put_att_float(id_, variable, name.c_str(), NC_FLOAT, 1, &value); }));
}

void NetcdfFile::range(int variable, float low, float high) {
  const std::array<float, 2> ends{low, high};
  require(netcdf_alone([&] {
    return nc_put_att_float(id_, variable, "actual_range", NC_FLOAT, ends.size(), ends.data());
  }));
}

void NetcdfFile::fill_value(int variable, std::int16_t value) {
  require(netcdf_alone([&] { return nc_def_var_fill(id_, variable, NC_FILL, &value); }));
}

void NetcdfFile::compress(int variable, const Sizes& chunk) {
  constexpr int shuffle = 1;
  constexpr int deflate = 1;
  constexpr int level = 1;
  constexpr std::size_t cache = 1;  // bytes: no chunk is kept
  constexpr std::size_t slots = 1;
  constexpr float preemption = 1.0F;
  require(
      netcdf_alone([&] { return nc_def_var_chunking(id_, variable, NC_CHUNKED, chunk.data()); }));
  require(netcdf_alone([&] { return nc_def_var_deflate(id_, variable, shuffle, deflate, level); }));
  require(netcdf_alone(
      [&] { return nc_set_var_chunk_cache(id_, variable, cache, slots, preemption); }));
}

void NetcdfFile::end_definitions() {
  require(netcdf_alone([&] { return nc_enddef(id_); }));
}

void NetcdfFile::put(int variable, const Sizes& start, const Sizes& count, const double* values) {
  require(netcdf_alone(
      [&] { return nc_put_vara_double(id_, variable, start.data(), count.data(), values); }));
}

void NetcdfFile::put(int variable, const Sizes& start, const Sizes& count,
                     const std::int16_t* values) {
  require(netcdf_alone(
      [&] { return nc_put_vara_short(id_, variable, start.data(), count.data(), values); }));
}

void NetcdfFile::put(int variable, const std::vector<double>& values) {
  require(netcdf_alone([&] { return nc_put_var_double(id_, variable, values.data()); }));
}

void NetcdfFile::put(int variable, const std::vector<std::int32_t>& values) {
  require(netcdf_alone([&] { return nc_put_var_int(id_, variable, values.data()); }));
}

void NetcdfFile::put(int variable, const std::vector<std::string>& values) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    const char* text = values[i].c_str();
    require(netcdf_alone([&] { return nc_put_var1_string(id_, variable, &i, &text); }));
  }
}

void NetcdfFile::close() {
  require(netcdf_alone([&] { return nc_sync(id_); }));
  const int id = id_;
  id_ = -1;
  flush_to_disk(path_, shown_);
  require(netcdf_alone([&] { return nc_close(id); }));
}

}  // namespace Outputs
