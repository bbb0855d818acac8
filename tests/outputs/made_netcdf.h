// NetCDF files that tests write without the program.
#ifndef KELPBOX_TESTS_OUTPUTS_MADE_NETCDF_H_
#define KELPBOX_TESTS_OUTPUTS_MADE_NETCDF_H_

#include <netcdf.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

namespace Testing {

class MadeNetcdf {
 public:
  explicit MadeNetcdf(const std::string& path, int format = NC_NETCDF4) {
    require(nc_create(path.c_str(), format | NC_CLOBBER, &id_));
  }
  ~MadeNetcdf() { nc_close(id_); }
  MadeNetcdf(const MadeNetcdf&) = delete;
  MadeNetcdf& operator=(const MadeNetcdf&) = delete;

  // With dimensions of its own. A length of 0 may grow.
  int variable(const std::string& name, nc_type type, const std::vector<std::size_t>& shape) {
    std::vector<int> dimensions(shape.size());
    for (std::size_t i = 0; i < shape.size(); ++i) {
      const std::string dimension = name + "_" + std::to_string(i);
      require(nc_def_dim(id_, dimension.c_str(), shape[i], &dimensions[i]));
    }
    int made = 0;
    require(nc_def_var(id_, name.c_str(), type, static_cast<int>(shape.size()), dimensions.data(),
                       &made));
    return made;
  }
  void attribute(int variable, const std::string& name, double value) {
    require(nc_put_att_double(id_, variable, name.c_str(), NC_DOUBLE, 1, &value));
  }
  void attribute(int variable, const std::string& name, const std::string& text) {
    require(nc_put_att_text(id_, variable, name.c_str(), text.size(), text.data()));
  }
  // Ends the definitions.
  void put(int variable, const std::vector<double>& values) {
    require(nc_enddef(id_));
    require(nc_put_var_double(id_, variable, values.data()));
  }

 private:
  static void require(int status) {
    if (status != NC_NOERR) throw std::runtime_error(nc_strerror(status));
  }

  int id_ = -1;
};

}  // namespace Testing

#endif  // KELPBOX_TESTS_OUTPUTS_MADE_NETCDF_H_
