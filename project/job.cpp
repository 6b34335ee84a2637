#include "project/job.h"

namespace orvane {

JobRecords RecordsOf(Job& job) {
  return {job.Details, job.ProjectDate, job.Items, job.AccLines1, job.AccLines2, job.AccUsed};
}

JobRecords OpenJobRecords() {
  return {txtProject, DTPicker1, Items, AccLines1, AccLines2, AccUsed};
}

JobView ViewOf(const Job& job) {
  return {job.Details,   job.ProjectDate, SectionRows(job.Items),
          job.AccLines1, job.AccLines2,   job.AccUsed};
}

JobView OpenJob() {
  return {txtProject, DTPicker1, SectionRows(Items), AccLines1, AccLines2, AccUsed};
}

}  // namespace orvane
