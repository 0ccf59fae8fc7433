# R reads tovarin-report's CSV of a file R wrote as it reads its own: a logical
# in_confidence_set that subset() takes, the names and BICs as they were.
program <- commandArgs(TRUE)[1]
models <- data.frame(name = c("lm(y ~ a, b)", "say \"hi\"", "tab\there", "m4"),
                     bic = c(2451.37, 2449.5, 2460, 3900.125))
input <- tempfile(fileext = ".csv")
write.csv(models, input, row.names = FALSE)
d <- read.csv(text = system2(program, c("--format", "csv", "--sort", "file", input), stdout = TRUE))
stopifnot(is.logical(d$in_confidence_set), nrow(subset(d, in_confidence_set)) == 2,
          identical(d$name, models$name), isTRUE(all.equal(d$bic, models$bic, tolerance = 1e-15)))
