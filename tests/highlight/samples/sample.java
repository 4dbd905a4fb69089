package org.example.shop;

import java.util.*;
import static java.lang.Math.max;

/**
 * A shop. The {@code String} in here is comment,
 * and so is "this".
 */
@FunctionalInterface
public sealed interface Shape permits Circle, Square {
    double area();
}

record Circle(double radius) implements Shape {
    @Override
    public double area() { return Math.PI * radius * radius; } // round
}

@SuppressWarnings({"unchecked", "rawtypes"})
non-sealed class Square implements Shape {
    private static final long serialVersionUID = 0x1FL;
    protected volatile int side = 1_000 - -2;
    char quote = '\'', tab = '\t';
    String text = "a \"quoted\" word\\", block = """
        Hello, "you"
        """;

    public synchronized <T extends Comparable<? super T>> T best(List<T> items) throws IOException {
        if (items == null || items.isEmpty()) throw new IllegalArgumentException("none");
        label:
        for (final T item : items) {
            switch (item) {
                case Integer i when i > 3 -> { continue label; }
                case null, default -> { break label; }
            }
        }
        var result = items.get(0); /* one */ assert result instanceof Object; /* two */
        return (side >>> 2) != 6.02e23f ? result : items.stream().max(Comparator.naturalOrder()).get();
    }
}
