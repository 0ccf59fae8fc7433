# The table of tovarin-report --format json, made the way an R user would:
# read.table, vector arithmetic, jsonlite (else a data frame written by hand).
# Usage: Rscript table.R IN.csv OUT.json
args <- commandArgs(trailingOnly = TRUE)
models <- read.table(args[1], header = TRUE, sep = ",", col.names = c("name", "bic"),
                     colClasses = c("character", "numeric"), quote = "\"", comment.char = "")
delta <- models$bic - min(models$bic)
term <- exp(-delta / 2)
models$delta_bic <- delta
models$weight <- term / sum(term)
models <- models[order(models$bic), ]
models <- cbind(rank = seq_len(nrow(models)), models)
models$cumulative_weight <- cumsum(models$weight)
models$ln_bayes_factor <- models$delta_bic / 2
models$bayes_factor <- exp(models$ln_bayes_factor)
models$evidence <- as.character(cut(models$delta_bic, c(-Inf, 2, 6, 10, Inf),
                                    labels = c("weak", "positive", "strong", "very strong")))
models$evidence[models$delta_bic == 0] <- "best model"
# Tied models (adjacent once sorted) are in or out together, by the weight before the first.
before <- models$cumulative_weight - models$weight
first <- !duplicated(models$bic)
models$in_confidence_set <- before[first][cumsum(first)] < 0.95
models$bic_source <- "read"
if (requireNamespace("jsonlite", quietly = TRUE)) {
  jsonlite::write_json(models, args[2], digits = NA)
} else {
  num <- function(x) ifelse(is.finite(x), sprintf("%.17g", x), "null")
  writeLines(paste0("[", paste0(sprintf(
    paste0('{"rank":%d,"name":"%s","bic":%s,"delta_bic":%s,"weight":%s,',
           '"cumulative_weight":%s,"ln_bayes_factor":%s,"bayes_factor":%s,',
           '"evidence":"%s","in_confidence_set":%s,"bic_source":"%s"}'),
    models$rank, models$name, num(models$bic), num(models$delta_bic), num(models$weight),
    num(models$cumulative_weight), num(models$ln_bayes_factor), num(models$bayes_factor),
    models$evidence, tolower(models$in_confidence_set), models$bic_source), collapse = ","),
    "]"), args[2])
}
