namespace corvanta::inline safety {

void WriteReport(Files& files) {
  files.WriteAtomically("report.csv", "");
}

}  // namespace corvanta::inline safety
