-- Orders and their lines.
/* A block comment: select and "string"
   are comment here. */
CREATE TABLE IF NOT EXISTS orders (
    id         BIGINT GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
    customer   VARCHAR(80) NOT NULL DEFAULT 'it''s',
    total      NUMERIC(10, 2) CHECK (total >= 0),
    created_at TIMESTAMP WITH TIME ZONE DEFAULT CURRENT_TIMESTAMP,
    data       jsonb,
    CONSTRAINT fk_customer FOREIGN KEY (customer) REFERENCES customers (name) ON DELETE CASCADE
);

create unique index idx_total on orders (total desc nulls last);

WITH RECURSIVE tree (id, depth) AS (
    SELECT id, 1 FROM "my orders" WHERE parent IS NULL
    UNION ALL
    SELECT o.id, t.depth + 1 FROM orders o INNER JOIN tree t ON o.parent = t.id -- one level down
)
SELECT customer, COUNT(*) AS n, SUM(total) OVER (PARTITION BY customer ORDER BY id ROWS UNBOUNDED PRECEDING),
       CASE WHEN total > 1.5e3 THEN 'big' WHEN total BETWEEN -1 AND 0x10 THEN "odd" ELSE NULL END
FROM orders LEFT OUTER JOIN tree USING (id)
WHERE customer LIKE '%a%' AND created_at >= DATE '2024-01-01' OR NOT EXISTS (SELECT 1) /* one */ = TRUE /* two */
GROUP BY ROLLUP (customer) HAVING COUNT(DISTINCT id) <> 3
ORDER BY 2 DESC OFFSET 10 ROWS FETCH FIRST 5 ROWS ONLY;

MERGE INTO stock USING (VALUES (1, 2)) AS v (id, n) ON stock.id = v.id
WHEN MATCHED THEN UPDATE SET n = stock.n + v.n
WHEN NOT MATCHED THEN INSERT VALUES (v.id, v.n);

BEGIN TRANSACTION; DELETE FROM orders WHERE id = :id OR id = @limit OR id = $1; ROLLBACK;
GRANT SELECT ON orders TO PUBLIC;
