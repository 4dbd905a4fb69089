#!/usr/bin/env node
'use strict';
import { readFile as read } from 'node:fs/promises';

/* A basket.
   let and "const" are comment here. */
export default class Basket extends Map {
  #total = 0x1F;
  static count = 1_000n;

  constructor(...items) {
    super();
    for (const [index, item] of items.entries()) this.set(index, item); // one by one
  }

  get total() { return this.#total ?? NaN; }

  async *lines(path = "C:\\temp\\\"basket\".txt") {
    try {
      const text = await read(path, "utf-8");
      yield* text.split(/\r?\n/).filter((line) => line !== '' && !line.startsWith("#"));
    } catch (error) {
      console.error(`cannot read ${path}`, error instanceof TypeError);
      throw new Error("no basket", { cause: error });
    } finally {
      delete this.cache;
    }
  }
}

@logged
function add(a, b = -1.5e3) {
  if (typeof a === 'undefined' || a == null) return undefined;
  var sum = a + b ** 2; /* one */ let other = sum >>> 0; /* two */
  do { sum -= 1; } while (sum > 10);
  return JSON.stringify({ sum, other, ok: true, nothing: null });
}

const view = <Panel title="Sum" value={add(1, 2)} />;
setTimeout(() => document.querySelector("#app")?.append(view), 250);
