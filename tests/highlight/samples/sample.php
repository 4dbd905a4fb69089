<?php
declare(strict_types=1);
namespace Shop\Orders;

use InvalidArgumentException as Bad;
/* Orders. The words class
   and "string" are comment. */
#[Attribute(Attribute::TARGET_CLASS)]
final readonly class Order implements \Countable, \JsonSerializable
{
    public const LIMIT = 0x1F;

    public function __construct(private array $lines = [], protected ?string $note = null) {}

    public static function fromText(string $text): static
    {
        // one line each
        foreach (explode("\n", $text) as $i => $line) {
            if (trim($line) === '' || $line[0] == "#") { continue; }
            $lines[] = match (true) {
                $i > 10, $i < -1 => throw new Bad("too many: \"$line\" \\"),
                default => (float) $line * 1.5e3,
            };
        }
        return new static($lines ?? []);
    }

    public function count(): int { return count($this->lines); }
    public function jsonSerialize(): mixed { return ['note' => $this->note?->value, 'at' => __LINE__]; }
}

enum Suit: string { case Hearts = 'H'; case Spades = 'S'; }
$add = fn (int ...$n): int => array_sum($n); echo $add(1, 2), PHP_EOL; /* one */ unset($add); /* two */
?>
<html>
  <body class="plain">
    <?php if (isset($_GET['q'])): ?>
    <p><?= htmlspecialchars($_GET['q']) ?></p>
    <?php endif; ?>
  </body>
</html>
