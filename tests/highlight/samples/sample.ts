// Types of a small client.
import type { Response as Reply } from "./reply";

/** One order; interface and "string"
    are comment here. */
export interface Order<out T = unknown> {
  readonly id: number;
  note?: string | null;
  items: ReadonlyArray<Partial<T>>;
}

type Keys<T> = { [K in keyof T as `on${Capitalize<string & K>}`]-?: T[K] extends infer U ? U : never };
declare module "legacy" { export function load(path: string): any; }
namespace Tools { export const limit = 0xff; }

@Injectable({ scope: "root" })
export abstract class Client implements Disposable {
  private static instance?: Client;
  protected constructor(public readonly base: URL, private retries = 3) {}

  abstract send<T>(order: Order<T>): Promise<void>;

  async get<const T extends object>(id: bigint): Promise<T | undefined> {
    const answer = await fetch(`${this.base}/orders/${id}`); // a template
    if (!isOrder(answer)) throw new RangeError("bad \"order\" \\");
    return (answer as unknown as T) satisfies object;
  }
}

function isOrder(value: unknown): value is Order {
  return typeof value === "object" && value !== null && "id" in value;
}

enum Level { Low = -1, High = 2.5e3 }
const enum Flag { A = 1 << 0, B = A | 2 } /* one */ let x!: symbol; /* two */
export = Tools;
