# Simulate a walk and describe it.
library(stats)
set.seed(42L)

walk <- function(n, sd = 1.5, ...) {
  steps <- rnorm(n, mean = 0, sd = sd)
  x <- cumsum(steps)
  if (any(is.na(x)) || length(x) == 0) {
    stop("no values: \"n\" was ", n)
  }
  structure(list(x = x, n = n), class = "walk")
}

print.walk <- function(w, ...) {
  cat(sprintf("%d steps, end %.2f\n", w$n, tail(w$x, 1)))
  invisible(w)
}

w <- walk(100)
frame <- data.frame(step = seq_along(w$x), x = w$x, up = w$x > 0)
means <- sapply(split(frame$x, frame$up), mean, na.rm = TRUE)
fit <- lm(x ~ step, data = frame)
half <- w$x |> abs() |> sort() |> utils::head(10)
squares <- Map(\(v) v^2, 1:3)
for (i in seq_len(3)) {
  if (i %% 2 == 0) next else print(i)
}
repeat {
  if (runif(1) < 0.5) break
}
even <- 1:10 %in% c(2, 4, 6)
value <- switch("b", a = NULL, b = Inf, NA_real_)
if (FALSE) {
  plot(w$x, type = "l")
}
