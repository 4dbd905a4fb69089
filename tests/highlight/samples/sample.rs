//! A small queue.
#![allow(dead_code)]
use std::{collections::HashMap, fmt};

/* A block comment: fn, struct and "string"
   are comment here. */
#[derive(Debug, Clone, PartialEq)]
pub enum State<'a> {
    Idle,
    Busy { name: &'a str, count: u32 },
}

const LIMIT: usize = 0xFF_u8 as usize - 12;
static mut COUNTER: i64 = -1_000;

pub trait Shape {
    const SIDES: u8 = 4;
    fn area(&self) -> f64;
    async fn load(self: Box<Self>) -> Result<(), Box<dyn std::error::Error>>;
}

macro_rules! square {
    ($x:expr) => { $x * $x };
}

impl<'a> fmt::Display for State<'a> {
    fn fmt(&self, f: &mut fmt::Formatter<'_>) -> fmt::Result {
        match self {
            State::Idle => write!(f, "idle \"now\" \\"),
            Self::Busy { name, count } if *count > 3 => write!(f, "{name}: {count:?}"),
            _ => unreachable!(),
        }
    }
}

fn longest<'a, T>(items: &'a [T]) -> Option<&'a T> where T: Ord + 'static {
    let mut best = items.first()?; // none if empty
    'outer: for item in items.iter().skip(1) {
        loop { if item > best { best = item; continue 'outer; } else { break; } }
    }
    let ratio = 1.5e-3 /* one */ + square!(2.0) /* two */;
    unsafe { COUNTER += ratio as i64; }
    println!("{}", vec!['a', '\''].len());
    Some(best)
}
